#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "coreapi/Vekactionclass.h"
#include "coreapi/Vekvariant.h"
#include "vekcoreapi_export.h"

struct PageClass;    // of the forms package; the host passes it through
struct EditorClass;  // likewise
struct OptionsClass;
class TVekOptionsObject;

class TFrame;

/// Makes action types, their property pages and their property editors known to the host.
class IVekActionServices {
 public:
  virtual ~IVekActionServices() = default;
  virtual void RegisterAction(std::string_view displayName, std::string_view category,
                              const ActionClass& actionClass, std::string_view typeId) = 0;
  virtual void RegisterPropertyPages(const ActionClass& actionClass,
                                     std::span<const PageClass* const> pages) = 0;

  /// An empty property name means every property of that type; the type is named as PropertyRow::TypeName
  /// does.
  virtual void RegisterPropertyEditor(std::string_view propertyType, const ActionClass& actionClass,
                                      const EditorClass& editor, std::string_view propertyName) = 0;
};

/// A method that scripts can call on the actions of a class.
using ScriptMethodHandler = Variant (*)(TCustomVekAction& action, std::span<const Variant> arguments);

class IVekScriptingServices {
 public:
  virtual ~IVekScriptingServices() = default;
  virtual void RegisterScriptConstant(std::string_view name, const Variant& value) = 0;
  virtual void RegisterScriptMethod(const ActionClass& actionClass, std::string_view name,
                                    std::string_view parameters, ScriptMethodHandler handler) = 0;
  virtual void RegisterScriptEnumType(const EnumType& type) = 0;

  /// The handler registered for the class or one it inherits from, or null.
  virtual ScriptMethodHandler FindScriptMethod(const ActionClass& actionClass, std::string_view name) = 0;
};

class IVekOptionsServices {
 public:
  virtual ~IVekOptionsServices() = default;
  virtual void RegisterOptionsPage(const OptionsClass& optionsClass, std::string_view bitmapName) = 0;

  /// The object of the registered class of that category and name, with what is stored; null for none.
  virtual TVekOptionsObject* FindOptions(std::string_view category, std::string_view name) = 0;

  /// The stored text of an option, or what the host has in its place, or empty.
  virtual std::string ReadOption(std::string_view name, std::string_view key) = 0;
};

/// A message box by the system's numbers: its style, and the button that was pressed.
namespace MessageBoxStyle {
inline constexpr uint32_t OkCancel = 1, YesNo = 4, QuestionIcon = 32, SecondIsDefault = 256;
}
namespace MessageBoxAnswer {
inline constexpr int32_t Ok = 1, Cancel = 2, Yes = 6, No = 7;
}

/// A line of text to be typed.
struct TTextPrompt {
  std::string_view title, text;
  bool secret = false;  // typed unseen, and what it had before is not shown either

  /// What is wrong with an answer, which is then asked for again; empty when it will do.
  std::function<std::string(const std::string& answer)> complaint = {};
};

/// Whether a chooser asks again for what is not there.
enum class TMustExist { No, Yes };

/// The user's answers to dialogs. One that is cancelled leaves what it was given alone.
/// [user-interface thread]
class IVekDialogServices {
 public:
  virtual ~IVekDialogServices() = default;
  virtual bool BrowseForFile(std::string_view title, std::string& fileName, std::string_view filter,
                             std::string_view defaultExtension, TMustExist mustExist) = 0;
  virtual bool BrowseForDirectory(std::string_view title, std::string& folder, TMustExist mustExist) = 0;

  /// The button; closing the box counts as the second one.
  virtual int32_t MessageDialog(std::string_view text, std::string_view caption, uint32_t style) = 0;

  /// `answer` is offered as it stands.
  virtual bool PromptForText(const TTextPrompt& prompt, std::string& answer) = 0;

  /// `number` counts the choices from 1; the one it names is offered, none for any other number.
  virtual bool ChooseFromList(std::string_view text, const StringList& choices, int32_t& number) = 0;

  /// Tells the user something that asks for no answer.
  virtual void ShowMessage(std::string_view text) = 0;
};

/// What a host with a designer knows of the project that is being edited. [user-interface thread]
class IVekDesignApplicationServices {
 public:
  virtual ~IVekDesignApplicationServices() = default;

  /// Adds the names of the defined variables, in the order in which a user is to see them.
  virtual void GetVariableNames(StringList& names) = 0;

  /// Shows a form as a dialog; true when the user confirmed.
  virtual bool ShowForm(TFrame& form) = 0;
};

/// The services of the one host of this process. A host installs its own before it loads a package and
/// takes them away when the last package is gone.
struct VekHostServices {
  IVekActionServices& actions;
  IVekScriptingServices& scripting;
  IVekOptionsServices& options;
  IVekDialogServices& dialogs;
  IVekDesignApplicationServices* design = nullptr;  // null: the host has no designer
};

VEK_API void InstallVekServices(const VekHostServices* services);

/// These raise EVekError while no host is installed.
VEK_API IVekActionServices& VekActionServices();
VEK_API IVekScriptingServices& VekScriptingServices();
VEK_API IVekOptionsServices& VekOptionsServices();
VEK_API IVekDialogServices& VekDialogServices();

/// Null where the host has no designer.
VEK_API IVekDesignApplicationServices* VekDesignApplicationServices();
