#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "rx/ModuleTable.h"

/// Why a file is no module that this host can load, in French.
class ModuleError : public std::exception {
public:
    explicit ModuleError(std::wstring reason) : m_reason(std::move(reason)) {}
    const std::wstring& reason() const { return m_reason; }

private:
    std::wstring m_reason;
};

/// Brings the file into memory and finds what a module exports; no message is sent. A bare file name is looked for
/// in the current folder, then in the folder of `beside`, a path, when that is not empty.
std::unique_ptr<LoadedModule> openModuleFile(const std::wstring& fileName, const std::wstring& beside);
