#include "host/EventSink.h"
