#pragma once

#include "fileops/VekCopyMove.h"
#include "forms/Vekpluginapi.h"

/// What the pages of both actions have in common.
template <class Action>
class TCopyMoveFrame : public TActionFrame<Action> {
 public:
  using TActionFrame<Action>::TActionFrame;

 protected:
  /// Answers the check box that makes the target a folder.
  TCheckBox& AddFiles(std::string_view sourceHint);
  void AddOptions();
};

class TCopyFrame final : public TCopyMoveFrame<TCopyFilesAction> {
 public:
  static constexpr std::string_view kClassName = "TCopyFrame";
  TCopyFrame();
};

class TMoveFrame final : public TCopyMoveFrame<TMoveFilesAction> {
 public:
  static constexpr std::string_view kClassName = "TMoveFrame";
  TMoveFrame();
};
