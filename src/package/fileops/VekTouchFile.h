#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

/// "Touch File(s)": sets date and time of day, or one of them, of the last write of the files that match a
/// specification, in sub-folders too when asked. Hidden and system files are never matched.
class TCustomTouchFilesAction : public TVekAction {
 public:
  static const ActionClass kClass;
  explicit TCustomTouchFilesAction(IVekActionHost& host);

  TDateTime DateTime;
  WideString FileSpec;
  WordBool TouchDate = true;
  WordBool TouchTime = true;
  WordBool TouchReadOnly = false;
  WordBool Recurse = false;
  WordBool UseNow = false;

  /// For property views, which edit DateTime in a dialog behind it.
  std::string DateTimeString() const { return "Edit..."; }
  void SetDateTimeString(std::string_view /*value*/) {}

  /// DateTime as the user's locale gives dates and times; a text that is none is ignored.
  std::string DateTimeAsString() const;
  void SetDateTimeAsString(std::string_view value);

  /// The number of files that the last run touched.
  int32_t FileCount() const { return fileCount_; }

  /// The same in short, and of it only what is touched.
  std::string ShownDateTime() const;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  bool Refuse(std::string_view text) const;
  bool ProcessFiles(const std::string& folder, std::string_view mask);
  bool TouchFile(const std::string& path);
  TDateTime Touched(TDateTime lastWrite) const;

  int32_t fileCount_ = 0;
};

class TTouchFilesAction final : public PublishedAction<TTouchFilesAction, TCustomTouchFilesAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TTouchFilesAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomTouchFilesAction::DateTime>("DateTime")
          .Varies()
          .Means("The date and time to set; with UseNow, those of the run"),
      Published<&TCustomTouchFilesAction::FileSpec>("FileSpec", TextRole::Wildcard),
      PublishedTruth<&TCustomTouchFilesAction::TouchDate>("TouchDate"),
      PublishedTruth<&TCustomTouchFilesAction::TouchTime>("TouchTime"),
      PublishedTruth<&TCustomTouchFilesAction::TouchReadOnly>("TouchReadOnly"),
      PublishedTruth<&TCustomTouchFilesAction::Recurse>("Recurse"),
      Published<&TCustomTouchFilesAction::DateTimeString, &TCustomTouchFilesAction::SetDateTimeString>(
          "DateTimeString")
          .NotStored()
          .Means("Always reads Edit...; setting it does nothing"),
      Published<&TCustomTouchFilesAction::FileCount>("FileCount")
          .Means("How many files the last run touched"),
      PublishedTruth<&TCustomTouchFilesAction::UseNow>("UseNow"),
      Published<&TCustomTouchFilesAction::DateTimeAsString, &TCustomTouchFilesAction::SetDateTimeAsString>(
          "DateTimeAsString")
          .NotStored()
          .Varies()
          .Means("DateTime as a text; one that is no date and time changes nothing"),
  };
};
