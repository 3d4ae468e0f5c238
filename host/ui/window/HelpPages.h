#pragma once

class QWidget;

/// What the menu of help shows, each in a window of its own that stays open beside the drawing.
namespace help_pages {

/// The user's guide, as it is installed; another page of the documentation opens from its links.
void showGuide(QWidget& parent);
/// The commands that can be typed, with those of the loaded modules.
void showCommands(QWidget& parent);
/// The program, its version, and the folders that it works with.
void showAbout(QWidget& parent);

} // namespace help_pages
