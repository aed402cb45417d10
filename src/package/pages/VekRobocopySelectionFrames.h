#pragma once

#include "pages/VekRobocopyAttributes.h"

class TRobocopyIncludeFrame final : public TRobocopyAttributesFrame<TVekRobocopyMainAction> {
 public:
  static constexpr std::string_view kClassName = "TRobocopyIncludeFrame";
  TRobocopyIncludeFrame();
};

class TRobocopyExcludeFrame final : public TRobocopyAttributesFrame<TVekRobocopyMainAction> {
 public:
  static constexpr std::string_view kClassName = "TRobocopyExcludeFrame";
  TRobocopyExcludeFrame();

 private:
  void AddAge(const std::string& name, std::string_view caption, Property<TCheckBox> wanted,
              Property<ChoiceOf<bool>> byDays, Property<TEdit> days, Property<TEdit> date);
};

class TVekRobocopyExcludeFilesFrame final : public TActionFrame<TVekRobocopyMainAction> {
 public:
  static constexpr std::string_view kClassName = "TVekRobocopyExcludeFilesFrame";
  TVekRobocopyExcludeFilesFrame();
};

class TVekRobocopyExcludeDirFrame final : public TActionFrame<TVekRobocopyMainAction> {
 public:
  static constexpr std::string_view kClassName = "TVekRobocopyExcludeDirFrame";
  TVekRobocopyExcludeDirFrame();
};
