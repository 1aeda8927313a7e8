#pragma once

// Every public header of the library.

#include "zenu/ZenuExport.h"
#include "zenu/scroll/KScrolledWidget.h"
#include "zenu/util/StringUtils.h"
