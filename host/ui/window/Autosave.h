#pragma once

#include <memory>
#include <QObject>
#include <QTimer>
#include <unordered_map>

#include "acdocman.h"

class Document;
class RecoveryFolder;

/// Keeps copies of the drawings that changed since they were saved, every few minutes. The drawings, their history and
/// their files stay as they are. A copy goes when its drawing is saved or closed.
class Autosave : public QObject, private AcApDocManagerReactor {
    Q_OBJECT

public:
    /// `folder` may be null: then nothing is kept.
    explicit Autosave(std::unique_ptr<RecoveryFolder> folder, QObject* parent = nullptr);
    ~Autosave() override;

    /// 0: never.
    void setMinutes(int minutes);
    /// Keeps what is to be kept now. A drawing that is being changed waits for the next time.
    void keepAll();

private:
    struct Kept {
        int number;
        std::uint64_t state = 0; ///< of the document when it was kept last
        bool there = false;
    };

    void keep(Document& document);
    void forget(Kept& kept);
    void documentToBeDestroyed(AcApDocument* document) override;

    std::unique_ptr<RecoveryFolder> m_folder;
    std::unordered_map<const AcApDocument*, Kept> m_kept;
    int m_numbers = 0;
    QTimer m_timer;
};
