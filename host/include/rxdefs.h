#pragma once

#include "adesk.h"

/// Constants of the runtime: the messages a module receives, and what it may answer.
struct AcRx {
    enum AppMsgCode {
        kNullMsg = 0,
        kInitAppMsg = 1,   ///< first message, once
        kUnloadAppMsg = 2, ///< last message, once
        kLoadDwgMsg = 3,   ///< for each document, which is then the current one
        kUnloadDwgMsg = 4, ///< before the document goes, or before the module does
        kInvkSubrMsg = 5,  ///< a function of acedDefun is called: see acedGetFunCode
        kCfgMsg = 6,
        kEndMsg = 7,
        kQuitMsg = 8, ///< the program ends
        kSaveMsg = 9, ///< the current document is about to be written
        kDependencyMsg = 10,
        kNoDependencyMsg = 11,
        kOleUnloadAppMsg = 12,
        kPreQuitMsg = 13,
        kInitDialogMsg = 14,
        kEndDialogMsg = 15,
    };
    enum AppRetCode {
        kRetOK = 0,
        kRetError = 3, ///< in answer to kInitAppMsg: unload me
    };
};
