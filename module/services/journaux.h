#pragma once

/// The module's two append-only logs. A log that cannot be opened drops the message.

/// Appends to C:\QUARVEL4\SUPPORT\MESSAGES.MSG, which is opened and closed for every message.
void journaliserMessage(const char* message);

/// Appends to DEBUGINFO.MSG of the current folder: a line break, `profondeur` times an indentation (none when it is 0
/// or less), the message in the 8-bit code page.
void journaliserDebug(int profondeur, const wchar_t* message);
