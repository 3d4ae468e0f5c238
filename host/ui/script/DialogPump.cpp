#include "ui/script/DialogPump.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMenu>

DialogPump::DialogPump(std::function<void(QWidget&)> dialogWaits, std::function<void()> nothingComes) :
    m_dialogWaits(std::move(dialogWaits))
{
    m_watch.setSingleShot(true);
    m_watch.setInterval(kPatience);
    connect(&m_watch, &QTimer::timeout, this, std::move(nothingComes));
    if (auto* const dispatcher = QAbstractEventDispatcher::instance())
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &DialogPump::loopWaits);
}

QWidget* DialogPump::dialogOnTop()
{
    if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        return menu;
    return QApplication::activeModalWidget();
}

void DialogPump::loopWaits()
{
    const QWidget* const before = dialogOnTop();
    QCoreApplication::sendPostedEvents(); // some dispatchers tell before they deliver
    QWidget* const dialog = dialogOnTop();
    // A dialog that has just been closed: its loop is about to end, and the code behind it has not run yet.
    const bool settled = dialog == before;
    if (!dialog && settled) {
        if (!m_watch.isActive())
            m_watch.start();
        return;
    }
    m_watch.stop();
    if (settled)
        m_dialogWaits(*dialog);
    QAbstractEventDispatcher::instance()->wakeUp(); // and round again
}

void DialogPump::runStrayDialogs()
{
    while (dialogOnTop())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    m_watch.stop();
}
