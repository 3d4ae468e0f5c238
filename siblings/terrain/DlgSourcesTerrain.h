#pragma once

#include <memory>
#include <string>
#include <vector>

#include "services/dialogueModule.h"

#include "sourcesTerrain.h"

class QLabel;
namespace Ui {
class DlgSourcesTerrain;
}

/// Asks what a new model is to be made from, and its name.
class DlgSourcesTerrain : public dialogueModule {
public:
    /// @param pris names of models there are: to take one of them is to replace it, and is asked
    DlgSourcesTerrain(const std::wstring& nomPropose, std::vector<std::wstring> pris);
    ~DlgSourcesTerrain() override;

    std::wstring nom() const;
    sourcesTerrain sources() const; ///< once accepted
    void accept() override;

private:
    void designer(std::vector<AcDbObjectId>& ids, QLabel& compte, const wchar_t* message);

    std::vector<std::wstring> m_pris;
    sourcesTerrain m_choisis;
    std::unique_ptr<Ui::DlgSourcesTerrain> m_ui;
};
