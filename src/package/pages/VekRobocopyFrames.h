#pragma once

#include "pages/VekRobocopyAttributes.h"

class TRobocopyMainFrame final : public TActionFrame<TVekRobocopyAction> {
 public:
  static constexpr std::string_view kClassName = "TRobocopyMainFrame";
  TRobocopyMainFrame();
};

class TRobocopyJobsFrame final : public TActionFrame<TVekRobocopyJobAction> {
 public:
  static constexpr std::string_view kClassName = "TRobocopyJobsFrame";
  TRobocopyJobsFrame();
};

class TRobocopyCopyOptionsFrame final : public TRobocopyAttributesFrame<TVekRobocopyCopyAction> {
 public:
  static constexpr std::string_view kClassName = "TRobocopyCopyOptionsFrame";
  TRobocopyCopyOptionsFrame();
};

class TRobocopyMoveOptionsFrame final : public TActionFrame<TVekRobocopyMoveAction> {
 public:
  static constexpr std::string_view kClassName = "TRobocopyMoveOptionsFrame";
  TRobocopyMoveOptionsFrame();
};

class TRobocopyLogOptionsFrame final : public TActionFrame<TVekRobocopyAction> {
 public:
  static constexpr std::string_view kClassName = "TRobocopyLogOptionsFrame";
  TRobocopyLogOptionsFrame();
};
