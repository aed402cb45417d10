#pragma once

#include "platform/Contents.h"

/// What Contents::Change does once its turn has come.
SysResult ChangeContents(Contents& contents, std::string_view path, const Contents::Edit& edit);
