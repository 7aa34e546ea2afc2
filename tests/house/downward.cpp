#include "host/Types.h"
