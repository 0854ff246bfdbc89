#include "controls/SortKey.h"
