#pragma once

#include <QDialog>

#include "ui/window/RecoveryFolder.h"

class QTreeWidget;

/// Says that a session ended without closing its drawings, and lists what was kept of them. Those that stay checked are
/// recovered; "Plus tard" keeps them for the next start.
class RecoveryDialog : public QDialog {
    Q_OBJECT

public:
    enum class Choice { recover, later, discard };

    RecoveryDialog(const std::vector<LostDrawing>& lost, QWidget* parent);

    Choice choice() const { return m_choice; }
    std::vector<LostDrawing> chosen() const;

private:
    void end(Choice choice);

    std::vector<LostDrawing> m_lost;
    QTreeWidget* m_list;
    Choice m_choice = Choice::later;
};
