#pragma once

#include <memory>

#include "services/dialogueModule.h"

#include "dbid.h"

namespace Ui {
class DlgInfosBlock;
}

/// "Infos block": size and description of a block picked in the drawing. "Modifier" writes at once.
class DlgInfosBlock : public dialogueModule {
    Q_OBJECT

public:
    DlgInfosBlock();
    ~DlgInfosBlock() override;

private:
    void choisir();
    void modifier();
    void montrer();

    std::unique_ptr<Ui::DlgInfosBlock> m_ui;
    AcDbObjectId m_bloc; // null until one was picked
};
