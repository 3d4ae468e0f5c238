#pragma once

#include <memory>
#include <QApplication>

/// The Qt application of the program: its standard texts are French, numbers are written with a point whatever the
/// user's locale, and what a handler throws is told on the command line instead of ending the program. While it lives,
/// the command PLOT can paint.
class VelaApplication : public QApplication {
public:
    enum class Screen {
        user, ///< the display of the session
        none, ///< no display is needed: dialogs live, unseen, in memory
    };
    static std::unique_ptr<VelaApplication> make(Screen screen);
    ~VelaApplication() override;

    bool notify(QObject* receiver, QEvent* event) override;

private:
    VelaApplication();
};
