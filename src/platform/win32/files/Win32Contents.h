#pragma once

#include "platform/Contents.h"

class Win32Contents final : public Contents {
 public:
  SysResult ReadWhole(std::string_view path, std::string& contents) override;
  SysResult ReadStream(std::string_view path, std::string& contents) override;
  SysResult Replace(std::string_view path, std::string_view contents) override;
  SysResult Rewrite(std::string_view path, std::unique_ptr<NewContents>& contents) override;
  SysResult Change(std::string_view path, const Edit& edit) override;
  SysResult Open(std::string_view path, OpenMode mode, ShareMode share,
                 std::unique_ptr<class OpenFile>& file) override;
};
