#pragma once

#include <string>

class TCustomVekAction;
class Variables;

/// An action's description with the values that variables have now, secret ones hidden and long ones cut.
/// Scripts in it and names of no variable stay as they are; the environment is left out, since nothing tells
/// what in it is secret.
std::string ActionTitle(const TCustomVekAction& action, const Variables& variables);
