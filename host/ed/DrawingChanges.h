#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "ap/Document.h"

/// What a document holds and its file does not.
class DrawingChanges {
public:
    static DrawingChanges& instance();

    /// Whether closing the document now would lose something. Taking all changes back makes it false again.
    bool areUnsaved(Document& document) const;
    /// Whether modules have drafts that they had not when it was opened or last saved: a recovery copy would hold them.
    bool hasNewDrafts(Document& document) const;
    /// From now on, what the document holds is in its file. To be called after opening and saving.
    void setSaved(Document& document);
    /// Whatever happens, it holds what no file does until it is saved: a drawing that was recovered.
    void setNeverSaved(Document& document);
    /// Tells one state of a document from another, drafts and all.
    std::uint64_t state(Document& document) const;

    /// What modules keep for the current document: numbers that change with it.
    struct ModuleStates {
        std::function<std::uint64_t()> saved;  ///< what they write to its drawing only when it is saved
        std::function<std::uint64_t()> drafts; ///< and only to a recovery copy; 0 where there are none
    };
    /// Set by the program; null for nothing.
    void setModuleStates(ModuleStates states) { m_modules = std::move(states); }

    /// Writes a recovery copy: what saving would write, modules told and all, to another file, whole or not at all. The
    /// document, its history and its own file stay as they are. No object of the drawing may be open.
    /// @return why it failed, or what the copy lacks, in French; nothing when it is whole.
    static std::optional<std::wstring> writeCopy(Document& document, const std::filesystem::path& path);

private:
    ModuleStates m_modules;
};
