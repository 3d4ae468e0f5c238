#pragma once

#include <memory>

#include "ap/Document.h"

/// One T for each document, made when it is first asked for, gone with the document.
template <class T>
class DocumentData {
public:
    DocumentData() = default;
    DocumentData(const DocumentData&) = delete;
    DocumentData& operator=(const DocumentData&) = delete;

    T& of(AcApDocument& document)
    {
        std::shared_ptr<void>& place = static_cast<Document&>(document).data(this);
        if (!place)
            place = std::make_shared<T>();
        return *static_cast<T*>(place.get());
    }
};
