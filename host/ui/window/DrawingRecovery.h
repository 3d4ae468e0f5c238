#pragma once

class Autosave;
class QWidget;

/// At the start: offers what an earlier session left behind, and opens what the user wants back as drawings without a
/// file, modified, whose first saving proposes the old place.
void offerRecovery(QWidget& window, Autosave& autosave);
