#include "gmock/gmock.h"

#include "base/WindowsPath.h"
#include "interaction/VekBeepAction.h"
#include "platform/Sounds.h"
#include "support/Exchanged.h"

namespace {

using testing::ElementsAre;

/// Notes what would have been heard.
struct SilentSounds final : Sounds {
  void Play(SystemSound sound, SoundWait wait, StopEvent&) override {
    Note(std::to_string(static_cast<int>(sound)), wait);
  }
  void PlayFile(std::string_view path, SoundWait wait, StopEvent&) override {
    Note(std::string(NamePart(path)), wait);
  }
  void Note(const std::string& what, SoundWait wait) {
    heard.push_back(what + (wait == SoundWait::No ? "..." : ""));
  }
  StringList heard;
};

struct BeepTest : ActionFixture, testing::Test {
  using ActionFixture::Run;

  BeepTest() : ActionFixture(Exchanged(&Platform::sounds, sounds)) {}

  SilentSounds sounds;
  TBeepAction action{Context()};
};

TEST_F(BeepTest, OnlyTheLastSoundNeedNotBeWaitedFor) {
  action.BeepType = TBeepTypes::btHand;
  EXPECT_TRUE(Run(action));
  action.RepeatCount = 3;
  action.WaitForCompletion = false;
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(sounds.heard, ElementsAre("3", "3", "3", "3..."));
}

TEST_F(BeepTest, AFileMustExist) {
  folder.Write("a.wav");
  action.BeepType = TBeepTypes::btSoundFile;
  action.SoundFile = folder.Path("a.wav");
  EXPECT_TRUE(Run(action));
  action.SoundFile = folder.Path("b.wav");
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("File does not exist: " + folder.Path("b.wav")));
  EXPECT_THAT(sounds.heard, ElementsAre("a.wav"));
}

}  // namespace
