#include "ui/application/VelaApplication.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdio>
#include <QFileDialog>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

#include "lisp/LispHooks.h"
#include "rx/Console.h"
#include "rx/ExceptionText.h"
#include "ui/application/FileDialogTexts.h"
#include "ui/render/DrawingPicture.h"

namespace {

// Qt keeps references to both for as long as the application lives.
int argumentCount = 1;
char programName[] = "vela";
char* programArguments[] = {programName, nullptr};

/// Remarks of Qt about the machine that mean nothing to a user.
bool isNoise(const QString& message)
{
    static constexpr std::array noise{"QStandardPaths: XDG_RUNTIME_DIR not set", "This plugin does not support ",
                                      "Sandboxing disabled by user", "No suitable graphics backend found"};
    return std::ranges::any_of(noise, [&](const char* start) { return message.startsWith(QLatin1String(start)); });
}

void tell(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtDebugMsg && type != QtInfoMsg && !isNoise(message))
        std::fprintf(stderr, "vela : %s\n", message.toUtf8().constData());
}

} // namespace

std::unique_ptr<VelaApplication> VelaApplication::make(Screen screen)
{
    qInstallMessageHandler(tell);
    // A platform that the user names wins: xcb shows what a script does.
    if (screen == Screen::none && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    setAttribute(Qt::AA_ShareOpenGLContexts); // the report viewer, a web engine, needs it set before all else
    return std::unique_ptr<VelaApplication>(new VelaApplication);
}

VelaApplication::VelaApplication() : QApplication(argumentCount, programArguments)
{
    std::setlocale(LC_NUMERIC, "C"); // Qt has taken the user's
    QLocale numbers = QLocale::c();
    numbers.setNumberOptions(QLocale::OmitGroupSeparator);
    QLocale::setDefault(numbers);
    setWindowIcon(QIcon(QStringLiteral(":/vela.svg")));
    setDesktopFileName(QStringLiteral("vela"));
    setQuitOnLastWindowClosed(false); // the end of the last dialog of a script is not the end of the script
    auto* const french = new QTranslator(this);
    if (french->load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(french);
    installPlotHook();
    LispHooks::instance().alert = [](const std::wstring& text) {
        QMessageBox::information(activeWindow(), QStringLiteral("Vela"), QString::fromStdWString(text));
    };
}

VelaApplication::~VelaApplication()
{
    LispHooks::instance().alert = nullptr;
    removePlotHook();
}

bool VelaApplication::notify(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Polish)
        if (auto* const files = qobject_cast<QFileDialog*>(receiver))
            tellFilesInFrench(*files);
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        Console::instance().print(L"\nErreur : " + currentExceptionText() + L".");
        return false;
    }
}
