#pragma once

#include <optional>
#include <string>

/// Small files read and replaced whole, by Windows-style path.

/// The bytes of the file; nothing when it cannot be read.
std::optional<std::string> lireFichier(const wchar_t* chemin);

/// Writes a file of that content: beside it first, then renamed over it, so that a failure leaves what was there.
bool remplacerFichier(const wchar_t* chemin, const std::string& octets);

/// Copies the file to a name beside it that is free: `chemin` with ".abime", then ".abime-2", ".abime-3"...
/// @return the copy's path, empty when there was no file to keep; nothing when it could not be copied.
std::optional<std::wstring> mettreDeCote(const wchar_t* chemin);
