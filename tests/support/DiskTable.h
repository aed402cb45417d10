#pragma once

#include <string>
#include <vector>

#include "base/Text.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Folders.h"
#include "platform/Platform.h"
#include "support/SystemText.h"
#include "support/TempFolder.h"

/// The disk of a test as lines: "name=text" for a file, "!name=text" for a read-only one, "name/" for a
/// folder (of those that are there only empty ones are told).
class DiskTable {
 public:
  DiskTable(const TempFolder& folder, const Platform& platform) : folder_(folder), platform_(platform) {}

  void Write(const StringList& lines) const {
    for (const std::string& line : lines) {
      const size_t mark = line.find('=');
      const bool isReadOnly = line[0] == '!';
      const std::string name = line.substr(isReadOnly, mark - isReadOnly);
      if (mark == std::string::npos) {
        folder_.MakeFolder(name);
      } else {
        if (isReadOnly) platform_.entries->SetAttributes(folder_.Path(name), FileAttribute::Normal);
        folder_.Write(name, line.substr(mark + 1));
        if (isReadOnly) platform_.entries->SetAttributes(folder_.Path(name), FileAttribute::ReadOnly);
      }
    }
  }

  StringList Read(const std::string& below = "") const {
    StringList lines;
    for (const std::string& name : folder_.Names(below)) {
      const std::string path = below + name;
      if (!platform_.folders->Exists(folder_.Path(path))) {
        uint32_t attributes = 0;
        platform_.entries->GetAttributes(folder_.Path(path), attributes);
        const bool isReadOnly = (attributes & FileAttribute::ReadOnly) != 0;
        lines.push_back((isReadOnly ? "!" : "") + path + '=' + folder_.Read(path));
        continue;
      }
      const StringList inner = Read(path + '/');
      inner.empty() ? lines.push_back(path + '/')
                    : void(lines.insert(lines.end(), inner.begin(), inner.end()));
    }
    return lines;
  }

  /// What a table says of a log: "%D%" stands for the folder, "{5}" for the system's text for that error.
  StringList Lines(const StringList& wanted) const {
    StringList lines;
    for (const std::string& line : wanted) {
      std::string text = ReplaceAll(line, "%D%", folder_.WindowsPath());
      const size_t start = text.find('{'), end = text.find('}', start);
      if (end != std::string::npos && text.find_first_not_of("0123456789", start + 1) == end) {
        const auto code = static_cast<Win32Error>(std::stoul(text.substr(start + 1)));
        text.replace(start, end - start + 1, SystemText(code));
      }
      lines.push_back(text);
    }
    return lines;
  }

 private:
  const TempFolder& folder_;
  const Platform& platform_;
};
