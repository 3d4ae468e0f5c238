#include "ScriptTest.h"

#include <array>
#include <QDir>
#include <QFile>

#include "ap/DocumentList.h"
#include "commands/CommandTable.h"
#include "rx/Console.h"

#include "accmd.h"

namespace {

std::array<std::function<void()>, 3> handlers;

template <std::size_t Index>
void callHandler()
{
    if (handlers[Index])
        handlers[Index]();
}

} // namespace

ScriptTest::ScriptTest()
{
    registerHostCommands();
    DocumentList::instance().create();
    Console::instance().setSink([this](const std::wstring& text) {
        printed += QString::fromStdWString(text).split(u'\n', Qt::SkipEmptyParts);
    });
    acedRegCmds->addCommand(L"ESSAIS", L"ESSAI", L"ESSAI", ACRX_CMD_MODAL, callHandler<0>);
    acedRegCmds->addCommand(L"ESSAIS", L"ESSAI2", L"ESSAI2", ACRX_CMD_MODAL, callHandler<1>);
    acedRegCmds->addCommand(L"ESSAIS", L"ESSAI3", L"ESSAI3", ACRX_CMD_MODAL, callHandler<2>);
    QDir::setCurrent(m_folder.path());
}

ScriptTest::~ScriptTest()
{
    acedRegCmds->removeGroup(L"ESSAIS");
    acedRegCmds->removeGroup(L"VELA_HOTE");
    handlers = {};
    Console::instance().setSink({});
    DocumentList::instance().closeAll();
    QDir::setCurrent(QDir::tempPath());
}

void ScriptTest::define(std::function<void()> essai, std::function<void()> essai2, std::function<void()> essai3)
{
    handlers = {std::move(essai), std::move(essai2), std::move(essai3)};
}

QString ScriptTest::write(const QString& name, const QString& content) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content.toUtf8());
    return path(name);
}

QString ScriptTest::run(const QString& lines)
{
    const QString failure = ScriptRunner(options).run(write("essai.scr", lines)).value_or(QString());
    return QString(failure).replace(m_folder.path() + u'/', QString());
}
