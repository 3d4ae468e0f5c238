#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "ed/Kernel.h"
#include "ui/application/VelaApplication.h"
#include "ui/script/ScriptCommand.h"

/// How failures of tests show texts.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

/// A whole host with an empty drawing, unseen dialogs, and commands that the test defines.
class ScriptTest : public testing::Test {
protected:
    ScriptTest();
    ~ScriptTest() override;

    /// The commands ESSAI, ESSAI2 and ESSAI3; what they do.
    void define(std::function<void()> essai, std::function<void()> essai2 = {}, std::function<void()> essai3 = {});

    /// Runs the lines as a script. @return its failure, without the folder; empty when there is none.
    QString run(const QString& lines);
    QString write(const QString& name, const QString& content) const;
    QString path(const QString& name) const { return m_folder.filePath(name); }

    ScriptRunner::Options options;
    QStringList printed; ///< lines on the console, without empty ones

private:
    std::unique_ptr<VelaApplication> m_application = VelaApplication::make(VelaApplication::Screen::none);
    Kernel m_kernel;
    ScriptCommand m_scriptCommand{{}};
    QTemporaryDir m_folder;
};
