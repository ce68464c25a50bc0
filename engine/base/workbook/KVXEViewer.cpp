#include "engine/base/workbook/KVXEViewer.h"

KVXEEnums::Visibility KVXEViewer::s_level = KVXEEnums::Visibility::EXTERNAL;
