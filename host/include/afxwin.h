#pragma once

/// The part of the application framework that the module uses outside its dialogs.

#include "afx.h"
#include "afxtempl.h"

/// Makes rich-edit controls available to dialogs. They always are here. @return TRUE.
BOOL AfxInitRichEdit();
