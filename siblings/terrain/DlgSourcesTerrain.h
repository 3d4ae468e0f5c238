#pragma once

#include <memory>
#include <string>

#include "services/dialogueModule.h"

#include "sourcesTerrain.h"

class QLabel;
namespace Ui {
class DlgSourcesTerrain;
}

/// Asks what a new model is to be made from, and its name.
class DlgSourcesTerrain : public dialogueModule {
public:
    explicit DlgSourcesTerrain(const std::wstring& nomPropose);
    ~DlgSourcesTerrain() override;

    std::wstring nom() const;
    sourcesTerrain sources() const;

private:
    void designer(std::vector<AcDbObjectId>& ids, QLabel& compte, const wchar_t* message);

    sourcesTerrain m_choisis;
    std::unique_ptr<Ui::DlgSourcesTerrain> m_ui;
};
