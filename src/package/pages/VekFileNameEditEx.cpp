#include "pages/VekFileNameEditEx.h"

std::string_view TFileNameEditEx::GetDefaultExtension() const { return "*.*"; }
std::string_view TFileNameEditEx::GetFilter() const { return "All Files(*.*)|*.*"; }
std::string_view TFileNameEditEx::GetTitle() const { return "Select File"; }
