#pragma once

class QFileDialog;

/// Gives sizes, kinds and dates of files their French texts: the dialog takes them from the locale of the machine,
/// which often is none.
void tellFilesInFrench(QFileDialog& dialog);
