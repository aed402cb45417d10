#pragma once

#include "forms/Vekpluginapi.h"
#include "process/VekXcopyAction.h"

class TXCopyMainFrame final : public TActionFrame<TVekXCopyAction> {
 public:
  static constexpr std::string_view kClassName = "TXCopyMainFrame";
  TXCopyMainFrame();
};

class TXCopyOptionsFrame final : public TActionFrame<TVekXCopyAction> {
 public:
  static constexpr std::string_view kClassName = "TXCopyOptionsFrame";
  TXCopyOptionsFrame();
};

class TXCopyAttribFrame final : public TActionFrame<TVekXCopyAction> {
 public:
  static constexpr std::string_view kClassName = "TXCopyAttribFrame";
  TXCopyAttribFrame();
};

class TVekXcopyExcludeFilesFrame final : public TActionFrame<TVekXCopyAction> {
 public:
  static constexpr std::string_view kClassName = "TVekXcopyExcludeFilesFrame";
  TVekXcopyExcludeFilesFrame();
};
