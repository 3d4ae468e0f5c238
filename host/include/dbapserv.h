#pragma once

#include "dbmain.h"

/// What the database asks of the program around it.
class AcDbHostApplicationServices {
public:
    virtual ~AcDbHostApplicationServices() = default;
    AcDbDatabase* workingDatabase() const { return m_working; }
    void setWorkingDatabase(AcDbDatabase* database) { m_working = database; }

private:
    AcDbDatabase* m_working = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
