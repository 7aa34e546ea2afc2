#include "graph/KxPlottable.h"
