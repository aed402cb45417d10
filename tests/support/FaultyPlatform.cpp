#include "support/FaultyPlatform.h"

#include <tuple>

#include "platform/Contents.h"
#include "platform/Disk.h"
#include "platform/Finder.h"
#include "platform/Folders.h"
#include "platform/IniFiles.h"
#include "platform/Processes.h"
#include "platform/Registry.h"
#include "platform/Shell.h"

namespace {

/// A capability, or what one has opened, that asks before each call.
template <class Capability>
class Faulty : public Capability {
 public:
  Faulty(Capability* real, const Fault& fault, std::string_view path = {})
      : real_(*real), path_(path), fault_(fault) {}
  Faulty(std::unique_ptr<Capability> real, const Fault& fault, std::string_view path = {})
      : Faulty(real.get(), fault, path) {
    owned_ = std::move(real);
  }

 protected:
  std::optional<SysResult> Ask(const PlatformCall& call) const {
    return fault_ ? fault_(call) : std::nullopt;
  }

  template <class Real>
  SysResult Try(const PlatformCall& call, Real real) {
    const auto planned = Ask(call);
    return planned ? *planned : real();
  }
  template <class... Parameters, class... Arguments>
  SysResult Do(std::string_view name, SysResult (Capability::*operation)(Parameters...),
               Arguments&&... arguments) {
    return Try({name, Path(arguments...)}, [&] { return (real_.*operation)(arguments...); });
  }
  template <class... Parameters, class... Arguments>
  bool Is(std::string_view name, bool (Capability::*question)(Parameters...), Arguments&&... arguments) {
    const auto planned = Ask({.operation = name, .path = Path(arguments...), .isQuestion = true});
    return planned ? planned->ok : (real_.*question)(arguments...);
  }

  Capability& real_;
  const std::string path_;  // of what was opened
  const Fault& fault_;

 private:
  /// What a call is about: what is open, or else what it names first.
  template <class... Arguments>
  std::string_view Path(const Arguments&... arguments) const {
    if constexpr (sizeof...(arguments) > 0) {
      const auto& first = std::get<0>(std::tie(arguments...));
      if constexpr (std::is_same_v<decltype(first), const std::string_view&>) {
        if (path_.empty()) return first;
      }
    }
    return path_;
  }

  std::unique_ptr<Capability> owned_;
};

class NoMatches final : public FindSearch {
 public:
  explicit NoMatches(SysResult result) : result_(result) {}
  bool Next(FoundEntry& /*entry*/) override { return false; }
  SysResult Result() const override { return result_; }

 private:
  SysResult result_;
};

/// Finds what there is, and may tell in the end that it has broken off.
class FaultySearch final : public Faulty<FindSearch> {
 public:
  using Faulty::Faulty;
  bool Next(FoundEntry& entry) override { return real_.Next(entry); }
  SysResult Result() const override {
    return Ask({.operation = "search.Result", .path = path_, .isQuestion = true}).value_or(real_.Result());
  }
};

class FaultyOpenFile final : public Faulty<OpenFile> {
 public:
  using Faulty::Faulty;
  SysResult Read(std::span<char> buffer, size_t& count) override {
    return Do("file.Read", &OpenFile::Read, buffer, count);
  }
  SysResult Write(std::string_view bytes) override {
    const auto planned = Ask({"file.Write", path_});
    if (!planned) return real_.Write(bytes);
    if (!planned->ok) real_.Write(bytes.substr(0, bytes.size() / 2));
    return *planned;
  }
  SysResult CopyFrom(OpenFile& source, uint64_t most, uint64_t& count) override {
    const auto planned = Ask({"file.CopyFrom", path_});
    if (!planned) return real_.CopyFrom(source, most, count);
    if (!planned->ok) real_.CopyFrom(source, 1, count);
    return *planned;
  }
  SysResult Seek(uint64_t position) override { return Do("file.Seek", &OpenFile::Seek, position); }
  SysResult GetSize(uint64_t& size) override { return Do("file.GetSize", &OpenFile::GetSize, size); }
  SysResult SetSize(uint64_t size) override { return Do("file.SetSize", &OpenFile::SetSize, size); }
  SysResult GetLastWrite(TDateTime& local) override {
    return Do("file.GetLastWrite", &OpenFile::GetLastWrite, local);
  }
  SysResult SetLastWrite(TDateTime local) override {
    return Do("file.SetLastWrite", &OpenFile::SetLastWrite, local);
  }
};

class FaultyNewContents final : public Faulty<NewContents> {
 public:
  using Faulty::Faulty;
  OpenFile& File() override { return file_; }
  SysResult Commit() override { return Do("contents.Commit", &NewContents::Commit); }

 private:
  FaultyOpenFile file_{&real_.File(), fault_, path_};
};

class FaultyRegistryKey final : public Faulty<RegistryKey> {
 public:
  using Faulty::Faulty;
  SysResult Read(std::string_view name, RegistryValue& value) override {
    return Do("key.Read", &RegistryKey::Read, name, value);
  }
  SysResult Write(std::string_view name, const RegistryValue& value) override {
    return Do("key.Write", &RegistryKey::Write, name, value);
  }
  SysResult Delete(std::string_view name) override { return Do("key.Delete", &RegistryKey::Delete, name); }
  SysResult SubKeys(StringList& names) override { return Do("key.SubKeys", &RegistryKey::SubKeys, names); }
  SysResult Values(StringList& names) override { return Do("key.Values", &RegistryKey::Values, names); }
};

class FaultyEntries final : public Faulty<Entries> {
 public:
  using Faulty::Faulty;
  bool FileExists(std::string_view path) override {
    return Is("entries.FileExists", &Entries::FileExists, path);
  }
  bool EntryExists(std::string_view path) override {
    return Is("entries.EntryExists", &Entries::EntryExists, path);
  }
  bool TargetExists(std::string_view source, std::string_view target) override {
    return Is("entries.TargetExists", &Entries::TargetExists, source, target);
  }
  SysResult CheckReplace(std::string_view path) override {
    return Do("entries.CheckReplace", &Entries::CheckReplace, path);
  }
  std::optional<EntryIdentity> Identity(std::string_view path) override {
    const auto planned = Ask({.operation = "entries.Identity", .path = path, .isQuestion = true});
    return planned ? std::nullopt : real_.Identity(path);
  }
  SysResult GetSize(std::string_view path, uint64_t& size) override {
    return Do("entries.GetSize", &Entries::GetSize, path, size);
  }
  SysResult GetAttributes(std::string_view path, uint32_t& attributes) override {
    return Do("entries.GetAttributes", &Entries::GetAttributes, path, attributes);
  }
  SysResult SetAttributes(std::string_view path, uint32_t attributes) override {
    return Try({.operation = "entries.SetAttributes", .path = path, .bits = attributes},
               [&] { return real_.SetAttributes(path, attributes); });
  }
  SysResult ChangeLastWrite(std::string_view path, const LastWriteChange& change) override {
    return Do("entries.ChangeLastWrite", &Entries::ChangeLastWrite, path, change);
  }
  SysResult Delete(std::string_view path) override { return Do("entries.Delete", &Entries::Delete, path); }
  SysResult Copy(std::string_view source, std::string_view target, const CopyOptions& options) override {
    return Try({.operation = "entries.Copy", .path = source, .copy = &options},
               [&] { return real_.Copy(source, target, options); });
  }
  SysResult Move(std::string_view source, std::string_view target, uint32_t flags,
                 const CopyProgress& progress) override {
    return Try({.operation = "entries.Move", .path = source, .progress = &progress, .bits = flags},
               [&] { return real_.Move(source, target, flags, progress); });
  }
};

class FaultyFolders final : public Faulty<Folders> {
 public:
  using Faulty::Faulty;
  bool Exists(std::string_view path) override { return Is("folders.Exists", &Folders::Exists, path); }
  SysResult CreateAsWritten(std::string_view path) override {
    return Do("folders.CreateAsWritten", &Folders::CreateAsWritten, path);
  }
  SysResult Create(std::string_view path) override { return Do("folders.Create", &Folders::Create, path); }
  SysResult CreateWithParents(std::string_view path, std::string_view source) override {
    return Try({"folders.CreateWithParents", path}, [&] { return real_.CreateWithParents(path, source); });
  }
  SysResult Remove(std::string_view path) override { return Do("folders.Remove", &Folders::Remove, path); }
  SysResult Empty(std::string_view path, const EmptyingOptions& options) override {
    return Do("folders.Empty", &Folders::Empty, path, options);
  }
};

class FaultyContents final : public Faulty<Contents> {
 public:
  using Faulty::Faulty;
  SysResult ReadWhole(std::string_view path, std::string& contents) override {
    return Do("contents.ReadWhole", &Contents::ReadWhole, path, contents);
  }
  SysResult ReadStream(std::string_view path, std::string& contents) override {
    return Do("contents.ReadStream", &Contents::ReadStream, path, contents);
  }
  SysResult Change(std::string_view path, const Edit& edit) override {
    return Do("contents.Change", &Contents::Change, path, edit);
  }
  SysResult Replace(std::string_view path, std::string_view contents) override {
    return Do("contents.Replace", &Contents::Replace, path, contents);
  }
  SysResult Rewrite(std::string_view path, std::unique_ptr<NewContents>& contents) override {
    return Try({"contents.Rewrite", path}, [&] {
      const SysResult begun = real_.Rewrite(path, contents);
      if (begun) contents = std::make_unique<FaultyNewContents>(std::move(contents), fault_, path);
      return begun;
    });
  }
  SysResult Open(std::string_view path, OpenMode mode, ShareMode share,
                 std::unique_ptr<class OpenFile>& file) override {
    return Try({"contents.Open", path}, [&] {
      const SysResult opened = real_.Open(path, mode, share, file);
      if (opened) file = std::make_unique<FaultyOpenFile>(std::move(file), fault_, path);
      return opened;
    });
  }
};

class FaultyFinder final : public Faulty<Finder> {
 public:
  using Faulty::Faulty;
  std::unique_ptr<FindSearch> Open(std::string_view spec, uint32_t mask, FindDetail detail,
                                   SysResult& result) override {
    const auto planned = Ask({"finder.Open", spec});
    if (planned) return std::make_unique<NoMatches>(result = *planned);
    return std::make_unique<FaultySearch>(real_.Open(spec, mask, detail, result), fault_, spec);
  }
};

class FaultyIniFiles final : public Faulty<IniFiles> {
 public:
  using Faulty::Faulty;
  SysResult Read(std::string_view path, std::string_view section, std::string_view key,
                 std::optional<std::string>& value) override {
    return Do("iniFiles.Read", &IniFiles::Read, path, section, key, value);
  }
  SysResult ReadSections(std::string_view path, StringList& names) override {
    return Do("iniFiles.ReadSections", &IniFiles::ReadSections, path, names);
  }
  SysResult ReadEntries(std::string_view path, std::string_view section,
                        std::vector<IniEntry>& entries) override {
    return Do("iniFiles.ReadEntries", &IniFiles::ReadEntries, path, section, entries);
  }
  SysResult Write(std::string_view path, std::string_view section, std::string_view key,
                  std::string_view value) override {
    return Do("iniFiles.Write", &IniFiles::Write, path, section, key, value);
  }
  SysResult WriteEntries(std::string_view path, std::string_view section, std::span<const IniEntry> entries,
                         OtherLines others) override {
    return Do("iniFiles.WriteEntries", &IniFiles::WriteEntries, path, section, entries, others);
  }
  SysResult Delete(std::string_view path, std::string_view section, std::string_view key) override {
    return Do("iniFiles.Delete", &IniFiles::Delete, path, section, key);
  }
  SysResult DeleteSection(std::string_view path, std::string_view section) override {
    return Do("iniFiles.DeleteSection", &IniFiles::DeleteSection, path, section);
  }
};

class FaultyRegistry final : public Faulty<Registry> {
 public:
  using Faulty::Faulty;
  SysResult Open(uint32_t root, std::string_view path, uint32_t access, RegistryOpen mode,
                 std::unique_ptr<RegistryKey>& key) override {
    return Try({"registry.Open", path}, [&] {
      const SysResult opened = real_.Open(root, path, access, mode, key);
      if (opened) key = std::make_unique<FaultyRegistryKey>(std::move(key), fault_);
      return opened;
    });
  }
  std::string Damage() override { return real_.Damage(); }
};

class FaultyProcesses final : public Faulty<Processes> {
 public:
  using Faulty::Faulty;
  SysResult Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                int32_t& exitCode) override {
    return Try({"processes.Run", setup.program}, [&] { return real_.Run(setup, output, stop, exitCode); });
  }
  SysResult Start(const ProcessSetup& setup) override {
    return Try({"processes.Start", setup.program}, [&] { return real_.Start(setup); });
  }
  std::string StartAdvice(Win32Error code) override { return real_.StartAdvice(code); }
};

class FaultyShell final : public Faulty<Shell> {
 public:
  using Faulty::Faulty;
  SysResult Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) override {
    return Try({"shell.Execute", request.file}, [&] { return real_.Execute(request, process); });
  }
};

class FaultyDisk final : public Faulty<Disk> {
 public:
  using Faulty::Faulty;
  SysResult GetSpace(std::string_view path, DiskSpace& space) override {
    return Do("disk.GetSpace", &Disk::GetSpace, path, space);
  }
};

}  // namespace

struct FaultyPlatform::Capabilities {
  const Platform& real;
  const Fault& fault;
  FaultyEntries entries{real.entries, fault};
  FaultyFolders folders{real.folders, fault};
  FaultyContents contents{real.contents, fault};
  FaultyFinder finder{real.finder, fault};
  FaultyIniFiles iniFiles{real.iniFiles, fault};
  FaultyRegistry registry{real.registry, fault};
  FaultyProcesses processes{real.processes, fault};
  FaultyShell shell{real.shell, fault};
  FaultyDisk disk{real.disk, fault};
};

FaultyPlatform::FaultyPlatform(const Platform& real, const Fault& fault)
    : capabilities_(new Capabilities{real, fault}), platform_(real) {
  platform_.entries = &capabilities_->entries;
  platform_.folders = &capabilities_->folders;
  platform_.contents = &capabilities_->contents;
  platform_.finder = &capabilities_->finder;
  platform_.iniFiles = &capabilities_->iniFiles;
  platform_.registry = &capabilities_->registry;
  platform_.processes = &capabilities_->processes;
  platform_.shell = &capabilities_->shell;
  platform_.disk = &capabilities_->disk;
}

FaultyPlatform::~FaultyPlatform() = default;
