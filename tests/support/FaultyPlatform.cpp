#include "support/FaultyPlatform.h"

#include "platform/Contents.h"
#include "platform/Disk.h"
#include "platform/Finder.h"
#include "platform/Folders.h"
#include "platform/IniFiles.h"
#include "platform/Processes.h"
#include "platform/Registry.h"
#include "platform/Shell.h"

namespace {

using Answer = std::optional<SysResult>;

Answer Ask(const Fault& fault, const PlatformCall& call) { return fault ? fault(call) : std::nullopt; }

template <class Real>
SysResult Try(const Fault& fault, const PlatformCall& call, Real real) {
  const Answer planned = Ask(fault, call);
  return planned ? *planned : real();
}

template <class Real>
bool TryQuestion(const Fault& fault, std::string_view operation, std::string_view path, Real real) {
  const Answer planned = Ask(fault, {.operation = operation, .path = path, .isQuestion = true});
  return planned ? planned->ok : real();
}

class NoMatches final : public FindSearch {
 public:
  explicit NoMatches(SysResult result) : result_(result) {}
  bool Next(FoundEntry& /*entry*/) override { return false; }
  SysResult Result() const override { return result_; }

 private:
  SysResult result_;
};

class FaultyOpenFile final : public OpenFile {
 public:
  FaultyOpenFile(OpenFile& real, std::string_view path, const Fault& fault)
      : real_(&real), path_(path), fault_(fault) {}
  FaultyOpenFile(std::unique_ptr<OpenFile> real, std::string_view path, const Fault& fault)
      : FaultyOpenFile(*real, path, fault) {
    owned_ = std::move(real);
  }

  SysResult Read(std::span<char> buffer, size_t& count) override {
    return Try(fault_, {"file.Read", path_}, [&] { return real_->Read(buffer, count); });
  }
  SysResult Write(std::string_view bytes) override {
    const Answer planned = Ask(fault_, {"file.Write", path_});
    if (!planned) return real_->Write(bytes);
    if (!planned->ok) real_->Write(bytes.substr(0, bytes.size() / 2));
    return *planned;
  }
  SysResult CopyFrom(OpenFile& source, uint64_t most, uint64_t& count) override {
    const Answer planned = Ask(fault_, {"file.CopyFrom", path_});
    if (!planned) return real_->CopyFrom(source, most, count);
    if (!planned->ok) real_->CopyFrom(source, 1, count);
    return *planned;
  }
  SysResult Seek(uint64_t position) override {
    return Try(fault_, {"file.Seek", path_}, [&] { return real_->Seek(position); });
  }
  SysResult GetSize(uint64_t& size) override {
    return Try(fault_, {"file.GetSize", path_}, [&] { return real_->GetSize(size); });
  }
  SysResult SetSize(uint64_t size) override {
    return Try(fault_, {"file.SetSize", path_}, [&] { return real_->SetSize(size); });
  }
  SysResult GetLastWrite(TDateTime& local) override {
    return Try(fault_, {"file.GetLastWrite", path_}, [&] { return real_->GetLastWrite(local); });
  }
  SysResult SetLastWrite(TDateTime local) override {
    return Try(fault_, {"file.SetLastWrite", path_}, [&] { return real_->SetLastWrite(local); });
  }

 private:
  std::unique_ptr<OpenFile> owned_;
  OpenFile* real_;
  std::string path_;
  const Fault& fault_;
};

class FaultyNewContents final : public NewContents {
 public:
  FaultyNewContents(std::unique_ptr<NewContents> real, std::string_view path, const Fault& fault)
      : real_(std::move(real)), path_(path), fault_(fault), file_(real_->File(), path_, fault) {}

  OpenFile& File() override { return file_; }
  SysResult Commit() override {
    return Try(fault_, {"contents.Commit", path_}, [&] { return real_->Commit(); });
  }

 private:
  std::unique_ptr<NewContents> real_;
  std::string path_;
  const Fault& fault_;
  FaultyOpenFile file_;
};

class FaultyRegistryKey final : public RegistryKey {
 public:
  FaultyRegistryKey(std::unique_ptr<RegistryKey> real, const Fault& fault)
      : real_(std::move(real)), fault_(fault) {}

  SysResult Read(std::string_view name, RegistryValue& value) override {
    return Try(fault_, {"key.Read", name}, [&] { return real_->Read(name, value); });
  }
  SysResult Write(std::string_view name, const RegistryValue& value) override {
    return Try(fault_, {"key.Write", name}, [&] { return real_->Write(name, value); });
  }
  SysResult Delete(std::string_view name) override {
    return Try(fault_, {"key.Delete", name}, [&] { return real_->Delete(name); });
  }
  SysResult SubKeys(StringList& names) override {
    return Try(fault_, {"key.SubKeys", ""}, [&] { return real_->SubKeys(names); });
  }
  SysResult Values(StringList& names) override {
    return Try(fault_, {"key.Values", ""}, [&] { return real_->Values(names); });
  }

 private:
  std::unique_ptr<RegistryKey> real_;
  const Fault& fault_;
};

/// A capability that asks before each call.
template <class Capability>
class Faulty : public Capability {
 public:
  Faulty(Capability* real, const Fault& fault) : real_(*real), fault_(fault) {}

 protected:
  Capability& real_;
  const Fault& fault_;
};

class FaultyEntries final : public Faulty<Entries> {
 public:
  using Faulty::Faulty;
  bool FileExists(std::string_view path) override {
    return TryQuestion(fault_, "entries.FileExists", path, [&] { return real_.FileExists(path); });
  }
  bool EntryExists(std::string_view path) override {
    return TryQuestion(fault_, "entries.EntryExists", path, [&] { return real_.EntryExists(path); });
  }
  bool TargetExists(std::string_view source, std::string_view target) override {
    return TryQuestion(fault_, "entries.TargetExists", target,
                       [&] { return real_.TargetExists(source, target); });
  }
  SysResult CheckReplace(std::string_view path) override {
    return Try(fault_, {"entries.CheckReplace", path}, [&] { return real_.CheckReplace(path); });
  }
  std::optional<EntryIdentity> Identity(std::string_view path) override {
    const Answer planned = Ask(fault_, {.operation = "entries.Identity", .path = path, .isQuestion = true});
    return planned ? std::nullopt : real_.Identity(path);
  }
  SysResult GetSize(std::string_view path, uint64_t& size) override {
    return Try(fault_, {"entries.GetSize", path}, [&] { return real_.GetSize(path, size); });
  }
  SysResult GetAttributes(std::string_view path, uint32_t& attributes) override {
    return Try(fault_, {"entries.GetAttributes", path},
               [&] { return real_.GetAttributes(path, attributes); });
  }
  SysResult SetAttributes(std::string_view path, uint32_t attributes) override {
    return Try(fault_, {.operation = "entries.SetAttributes", .path = path, .bits = attributes},
               [&] { return real_.SetAttributes(path, attributes); });
  }
  SysResult ChangeLastWrite(std::string_view path, const LastWriteChange& change) override {
    return Try(fault_, {"entries.ChangeLastWrite", path},
               [&] { return real_.ChangeLastWrite(path, change); });
  }
  SysResult Delete(std::string_view path) override {
    return Try(fault_, {"entries.Delete", path}, [&] { return real_.Delete(path); });
  }
  SysResult Copy(std::string_view source, std::string_view target, const CopyOptions& options) override {
    return Try(fault_, {.operation = "entries.Copy", .path = source, .copy = &options},
               [&] { return real_.Copy(source, target, options); });
  }
  SysResult Move(std::string_view source, std::string_view target, uint32_t flags,
                 const CopyProgress& progress) override {
    return Try(fault_, {.operation = "entries.Move", .path = source, .progress = &progress, .bits = flags},
               [&] { return real_.Move(source, target, flags, progress); });
  }
};

class FaultyFolders final : public Faulty<Folders> {
 public:
  using Faulty::Faulty;
  bool Exists(std::string_view path) override {
    return TryQuestion(fault_, "folders.Exists", path, [&] { return real_.Exists(path); });
  }
  SysResult CreateAsWritten(std::string_view path) override {
    return Try(fault_, {"folders.CreateAsWritten", path}, [&] { return real_.CreateAsWritten(path); });
  }
  SysResult Create(std::string_view path) override {
    return Try(fault_, {"folders.Create", path}, [&] { return real_.Create(path); });
  }
  SysResult CreateWithParents(std::string_view path, std::string_view source) override {
    return Try(fault_, {"folders.CreateWithParents", path},
               [&] { return real_.CreateWithParents(path, source); });
  }
  SysResult Remove(std::string_view path) override {
    return Try(fault_, {"folders.Remove", path}, [&] { return real_.Remove(path); });
  }
  SysResult Empty(std::string_view path, const EmptyingOptions& options) override {
    return Try(fault_, {"folders.Empty", path}, [&] { return real_.Empty(path, options); });
  }
};

class FaultyContents final : public Faulty<Contents> {
 public:
  using Faulty::Faulty;
  SysResult ReadWhole(std::string_view path, std::string& contents) override {
    return Try(fault_, {"contents.ReadWhole", path}, [&] { return real_.ReadWhole(path, contents); });
  }
  SysResult ReadStream(std::string_view path, std::string& contents) override {
    return Try(fault_, {"contents.ReadStream", path}, [&] { return real_.ReadStream(path, contents); });
  }
  SysResult Change(std::string_view path, const Edit& edit) override {
    return Try(fault_, {"contents.Change", path}, [&] { return real_.Change(path, edit); });
  }
  SysResult Replace(std::string_view path, std::string_view contents) override {
    return Try(fault_, {"contents.Replace", path}, [&] { return real_.Replace(path, contents); });
  }
  SysResult Rewrite(std::string_view path, std::unique_ptr<NewContents>& contents) override {
    return Try(fault_, {"contents.Rewrite", path}, [&] {
      const SysResult begun = real_.Rewrite(path, contents);
      if (begun) contents = std::make_unique<FaultyNewContents>(std::move(contents), path, fault_);
      return begun;
    });
  }
  SysResult Open(std::string_view path, OpenMode mode, ShareMode share,
                 std::unique_ptr<class OpenFile>& file) override {
    return Try(fault_, {"contents.Open", path}, [&] {
      const SysResult opened = real_.Open(path, mode, share, file);
      if (opened) file = std::make_unique<FaultyOpenFile>(std::move(file), path, fault_);
      return opened;
    });
  }
};

class FaultyFinder final : public Faulty<Finder> {
 public:
  using Faulty::Faulty;
  std::unique_ptr<FindSearch> Open(std::string_view spec, uint32_t mask, FindDetail detail,
                                   SysResult& result) override {
    const Answer planned = Ask(fault_, {"finder.Open", spec});
    if (!planned) return real_.Open(spec, mask, detail, result);
    result = *planned;
    return std::make_unique<NoMatches>(result);
  }
};

class FaultyIniFiles final : public Faulty<IniFiles> {
 public:
  using Faulty::Faulty;
  SysResult Read(std::string_view path, std::string_view section, std::string_view key,
                 std::optional<std::string>& value) override {
    return Try(fault_, {"iniFiles.Read", path}, [&] { return real_.Read(path, section, key, value); });
  }
  SysResult ReadSections(std::string_view path, StringList& names) override {
    return Try(fault_, {"iniFiles.ReadSections", path}, [&] { return real_.ReadSections(path, names); });
  }
  SysResult ReadEntries(std::string_view path, std::string_view section,
                        std::vector<IniEntry>& entries) override {
    return Try(fault_, {"iniFiles.ReadEntries", path},
               [&] { return real_.ReadEntries(path, section, entries); });
  }
  SysResult Write(std::string_view path, std::string_view section, std::string_view key,
                  std::string_view value) override {
    return Try(fault_, {"iniFiles.Write", path}, [&] { return real_.Write(path, section, key, value); });
  }
  SysResult WriteEntries(std::string_view path, std::string_view section, std::span<const IniEntry> entries,
                         OtherLines others) override {
    return Try(fault_, {"iniFiles.WriteEntries", path},
               [&] { return real_.WriteEntries(path, section, entries, others); });
  }
  SysResult Delete(std::string_view path, std::string_view section, std::string_view key) override {
    return Try(fault_, {"iniFiles.Delete", path}, [&] { return real_.Delete(path, section, key); });
  }
  SysResult DeleteSection(std::string_view path, std::string_view section) override {
    return Try(fault_, {"iniFiles.DeleteSection", path}, [&] { return real_.DeleteSection(path, section); });
  }
};

class FaultyRegistry final : public Faulty<Registry> {
 public:
  using Faulty::Faulty;
  SysResult Open(uint32_t root, std::string_view path, uint32_t access, RegistryOpen mode,
                 std::unique_ptr<RegistryKey>& key) override {
    return Try(fault_, {"registry.Open", path}, [&] {
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
    return Try(fault_, {"processes.Run", setup.program},
               [&] { return real_.Run(setup, output, stop, exitCode); });
  }
  SysResult Start(const ProcessSetup& setup) override {
    return Try(fault_, {"processes.Start", setup.program}, [&] { return real_.Start(setup); });
  }
  std::string StartAdvice(Win32Error code) override { return real_.StartAdvice(code); }
};

class FaultyShell final : public Faulty<Shell> {
 public:
  using Faulty::Faulty;
  SysResult Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) override {
    return Try(fault_, {"shell.Execute", request.file}, [&] { return real_.Execute(request, process); });
  }
};

class FaultyDisk final : public Faulty<Disk> {
 public:
  using Faulty::Faulty;
  SysResult GetSpace(std::string_view path, DiskSpace& space) override {
    return Try(fault_, {"disk.GetSpace", path}, [&] { return real_.GetSpace(path, space); });
  }
};

}  // namespace

struct FaultyPlatform::Capabilities {
  Capabilities(const Platform& real, const Fault& fault)
      : entries(real.entries, fault),
        folders(real.folders, fault),
        contents(real.contents, fault),
        finder(real.finder, fault),
        iniFiles(real.iniFiles, fault),
        registry(real.registry, fault),
        processes(real.processes, fault),
        shell(real.shell, fault),
        disk(real.disk, fault) {}

  FaultyEntries entries;
  FaultyFolders folders;
  FaultyContents contents;
  FaultyFinder finder;
  FaultyIniFiles iniFiles;
  FaultyRegistry registry;
  FaultyProcesses processes;
  FaultyShell shell;
  FaultyDisk disk;
};

FaultyPlatform::FaultyPlatform(const Platform& real, const Fault& fault)
    : capabilities_(std::make_unique<Capabilities>(real, fault)), platform_(real) {
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
