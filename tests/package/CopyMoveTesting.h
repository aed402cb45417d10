#pragma once

#include <memory>
#include <string>

#include "gmock/gmock.h"

#include "support/ActionFixture.h"
#include "support/RunTable.h"

/// A run of Copy File(s) or Move File(s): as a RunCase, with the properties that are true in `options`, after
/// the log's header.
struct CopyMoveCase {
  const char* name;
  std::string options, before, spec, target;
  bool result;
  std::string log;  // FAILED stands for how the lines of a failed file begin
  std::string after;
  int affected;
  int errors = 0;
};

/// The action in a folder of its own, D.
template <class Action>
struct CopyMoveRuns : ActionFixture {
  CopyMoveRuns() { Context().SetVariable("D", folder.WindowsPath()); }

  bool Perform(const std::string& spec, const std::string& target) {
    action->SetFileSpec(spec);
    action->Target = WideString(target);
    return ActionFixture::Run(*action);
  }
  StringList Wanted(const StringList& lines) const { return disk.Lines(lines); }

  void Expect(const CopyMoveCase& wanted, const std::string& verb, const std::string& failed) {
    SCOPED_TRACE(wanted.name);
    RunCase run{
        wanted.name,
        "FileSpec=" + wanted.spec,
        wanted.before,
        wanted.result,
        verb + " files : " + wanted.spec + " -> " + wanted.target + '|' +
            ReplaceAll(wanted.log, "FAILED", failed),
        wanted.after,
        "FilesAffected=" + std::to_string(wanted.affected) + "|ErrorCount=" + std::to_string(wanted.errors)};
    for (const std::string& option : SplitAt(wanted.options, " ")) run.set += '|' + option + "=True";
    run.set += "|Target=" + wanted.target;
    ExpectRun(*this, *action, run);
  }

  std::unique_ptr<Action> action = Make<Action>();
  const DiskTable disk{folder, GetPlatform()};
};
