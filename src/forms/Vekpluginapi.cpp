#include "vekforms_export.h"
