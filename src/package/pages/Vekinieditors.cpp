#include "pages/Vekinieditors.h"

std::string_view TIniFileNameEdit::GetDefaultExtension() const { return "*.ini"; }
std::string_view TIniFileNameEdit::GetFilter() const { return "Configuration files(*.ini)|*.ini"; }
std::string_view TIniFileNameEdit::GetTitle() const { return "Select Ini File"; }
