#include "pages/VekBeepFrame.h"

TfrmBeep::TfrmBeep() : TActionFrame("Beep") {
  ComboBox("cmbBeepType", "BeepType")
      .Items({"Default", "Asterisk", "Exclamation", "Hand", "Question", "Sound File"})
      .Hint("Sound");
  ButtonEdit("txtSoundFile", "SoundFile")
      .Hint("WAV file to play")
      .BrowsesForFile("Select Sound File", "WAV Files (*.wav)|*.wav|All Files (*.*)|*.*", ".wav");
  Edit("txtRepeatCount", "RepeatCount").Hint("How many times to play it");
  CheckBox("chkWait", "Wait for Completion", "WaitForCompletion");
}
