#include "platform/CreatePlatform.h"
