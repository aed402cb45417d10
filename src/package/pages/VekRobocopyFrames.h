#pragma once

#include "forms/Vekpluginapi.h"
#include "process/VekRobocopyMainAction.h"

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

class TRobocopyCopyOptionsFrame final : public TActionFrame<TVekRobocopyCopyAction> {
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
