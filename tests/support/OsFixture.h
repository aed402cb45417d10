#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

/// What a test needs of the operating system beyond the platform interfaces. Paths are full paths.

/// Makes a symbolic link at `path` with the text `target`.
void MakeLink(const std::string& target, const std::string& path);

/// Sets the permission bits of a file or folder, or reads them.
void SetMode(const std::string& path, uint32_t mode);
uint32_t ModeOf(const std::string& path);

/// The stored attribute value of a file (user.DOSATTRIB); false or nothing where none can be or is stored.
bool StoreRawAttributes(const std::string& path, const std::string& value);
std::optional<std::string> RawAttributes(const std::string& path);

/// Makes a named pipe; tells how much room a file takes on the disk. POSIX only.
void MakePipe(const std::string& path);
uint64_t BytesOnDisk(const std::string& path);

/// Whether the file system under `folder` stores hidden, system and archive attributes.
bool StoresAttributes(const std::string& folder);

/// Runs `body` while no file can grow beyond `bytes`: writing further fails as on a full disk.
void WithFileSizeLimit(uint64_t bytes, const std::function<void()>& body);

/// Holds the file open exclusively, as another program would; released by destruction.
class ExclusiveOpen {
 public:
  explicit ExclusiveOpen(const std::string& path);
  ~ExclusiveOpen();
  ExclusiveOpen(const ExclusiveOpen&) = delete;
  ExclusiveOpen& operator=(const ExclusiveOpen&) = delete;

 private:
  int handle_;
};

/// Removes a key of the current user and all below it; elsewhere than on Windows a test has a store of its
/// own.
void RemoveRegistryKey(const std::string& path);

/// Asks this process to stop, as Ctrl-C does.
void SendInterrupt();

/// Sets or removes an environment variable of this process.
void SetVariable(const std::string& name, const std::optional<std::string>& value);

/// Whether the process of that number has not ended yet.
bool ProcessRuns(unsigned long number);
