#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

/// Base of the actions that work on one named file or folder.
class TFileOrDirectoryAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  const WideString& FileOrDirectory() const { return fileOrDirectory_; }
  void SetFileOrDirectory(const WideString& value);
  bool Force = false;
  WordBool DeleteTree = false;
  WordBool DeleteReadOnly = false;

  static constexpr PropertyRow kPublished[] = {
      Published<&TFileOrDirectoryAction::Force>("Force").Means("Create Directory alone looks at it")};

  std::string GetDescriptionKeyValue(int32_t index) const override;
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override;
  bool Validate(IVekActionValidationError& errors) override;

 protected:
  /// What Validate says of an empty name.
  struct Complaint {
    std::string_view title, message;
  };
  virtual Complaint WhenEmpty() const = 0;

 private:
  WideString fileOrDirectory_;
};

/// What the check says of a file or folder that exists, or does not.
enum class TFileExistsMode { feFailIfExists, feFailIfMissing, feIgnore };
template <>
inline constexpr auto kEnumNames<TFileExistsMode> = Names("TFileExistsMode", "feFailIfExists",
                                                          "feFailIfMissing", "feIgnore");

/// "Check if File Exists": tests a literal name; the answer also goes to a variable.
class TCustomFileExistsAction : public TFileOrDirectoryAction {
 public:
  static const ActionClass kClass;
  using TFileOrDirectoryAction::TFileOrDirectoryAction;

  TFileExistsMode ExistsMode = TFileExistsMode::feFailIfMissing;
  std::string Variable;

  /// How projects of before ExistsMode gave the mode.
  bool FailIfExists() const { return ExistsMode == TFileExistsMode::feFailIfExists; }
  void SetFailIfExists(bool value);

 protected:
  bool Execute() override;
  Complaint WhenEmpty() const override { return {"FileOrDirectory", "Field is empty!"}; }

 private:
  bool ResultFor(bool exists) const;
};

/// "Create Directory": creates one folder, with its missing parents when forced.
class TCustomCreateDirectoryAction : public TFileOrDirectoryAction {
 public:
  static const ActionClass kClass;
  using TFileOrDirectoryAction::TFileOrDirectoryAction;

 protected:
  bool Execute() override;
  Complaint WhenEmpty() const override { return {"Directory", "The directory to create has not been set"}; }

 private:
  bool CreateFolder(const std::string& folder) const;
};

/// "Delete Directory": removes a folder with all that it holds.
class TCustomDeleteDirectoryAction : public TFileOrDirectoryAction {
 public:
  static const ActionClass kClass;
  explicit TCustomDeleteDirectoryAction(IVekActionHost& host);

  WordBool DeleteHidden = false;
  bool LogDeletedFiles = false;

 protected:
  bool Execute() override;
  Complaint WhenEmpty() const override { return {"Directory", "The directory to delete has not been set"}; }

 private:
  SysResult Remove(const std::string& folder);
  SysResult LeaveFolder(const std::string& folder, std::string& target) const;
  void ClearAttributes(const std::string& folder) const;
  SysResult DelTree(const std::string& folder, const std::string& mask);
};

class TFileExistsAction final : public PublishedAction<TFileExistsAction, TCustomFileExistsAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TFileExistsAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TFileOrDirectoryAction::FileOrDirectory, &TFileOrDirectoryAction::SetFileOrDirectory>(
          "FileOrDirectory", TextRole::File),
      Published<&TCustomFileExistsAction::FailIfExists, &TCustomFileExistsAction::SetFailIfExists>(
          "FailIfExists")
          .NotStored()
          .Means("Sets ExistsMode to feFailIfExists (True) or feFailIfMissing (False); from older projects"),
      Published<&TCustomFileExistsAction::ExistsMode>("ExistsMode")
          .Means("Fail when it exists, fail when it is missing, or never fail"),
      Published<&TCustomFileExistsAction::Variable>("Variable", TextRole::Variable)
          .Means("The variable that receives whether it exists, as a boolean; blank for none"),
  };
};

class TCreateDirectoryAction final
    : public PublishedAction<TCreateDirectoryAction, TCustomCreateDirectoryAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TCreateDirectoryAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TFileOrDirectoryAction::FileOrDirectory, &TFileOrDirectoryAction::SetFileOrDirectory>(
          "FileOrDirectory", TextRole::Folder),
  };
};

class TDeleteDirectoryAction final
    : public PublishedAction<TDeleteDirectoryAction, TCustomDeleteDirectoryAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TDeleteDirectoryAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TFileOrDirectoryAction::FileOrDirectory, &TFileOrDirectoryAction::SetFileOrDirectory>(
          "FileOrDirectory", TextRole::Folder),
      Published<&TFileOrDirectoryAction::DeleteTree>("DeleteTree"),
      Published<&TFileOrDirectoryAction::DeleteReadOnly>("DeleteReadOnly")
          .Means("The read-only attribute of the folder itself is cleared without Delete Tree too"),
      Published<&TCustomDeleteDirectoryAction::DeleteHidden>("DeleteHidden")
          .Means("Clears the hidden attribute of the folder first; what is hidden is deleted either way"),
      Published<&TCustomDeleteDirectoryAction::LogDeletedFiles>("LogDeletedFiles")
          .Means("Log each file and folder that is removed"),
  };
};
