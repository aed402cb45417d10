#include "support/TempFolder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "gtest/gtest.h"

namespace fs = std::filesystem;

namespace {

// Through char8_t, so that names are UTF-8 on every system; bytes that are not UTF-8 stay where they can.
fs::path ToPath(std::string_view text) { return std::u8string(text.begin(), text.end()); }

std::string ToText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

void MakeWritable(const fs::path& path) {
  std::error_code ignored;
  const auto bits = fs::is_directory(path, ignored) ? fs::perms::owner_all : fs::perms::owner_write;
  fs::permissions(path, bits, fs::perm_options::add, ignored);
}

void RemoveTree(const fs::path& root) {
  std::error_code error;
  MakeWritable(root);
  for (const fs::directory_entry& entry : fs::directory_iterator(root, error)) {
    if (entry.is_symlink(error)) continue;
    entry.is_directory(error) ? RemoveTree(entry.path()) : MakeWritable(entry.path());
  }
  fs::remove_all(root, error);
}

}  // namespace

TempFolder::TempFolder() {
  std::random_device random;
  const fs::path base = fs::canonical(fs::temp_directory_path());
  do {
    path_ = ToText(base / ("vektest-" + std::to_string(random())));
  } while (!fs::create_directory(ToPath(path_)));
}

TempFolder::~TempFolder() { RemoveTree(ToPath(path_)); }

void TempFolder::Write(std::string_view name, std::string_view text) const {
  const fs::path path = ToPath(Path(name));
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  EXPECT_TRUE(file.flush().good()) << name;
}

void TempFolder::MakeFolder(std::string_view name) const { fs::create_directories(ToPath(Path(name))); }

std::string TempFolder::Read(std::string_view name) const {
  std::ifstream file(ToPath(Path(name)), std::ios::binary);
  EXPECT_TRUE(file.good()) << name;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

bool TempFolder::Exists(std::string_view name) const {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(ToPath(Path(name)), ignored));
}

std::vector<std::string> TempFolder::Names(std::string_view below) const {
  std::vector<std::string> names;
  const fs::path folder = ToPath(below.empty() ? path_ : Path(below));
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    names.push_back(ToText(entry.path().filename()));
  }
  std::sort(names.begin(), names.end());
  return names;
}
