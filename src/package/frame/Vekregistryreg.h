#pragma once

/// The registry unit's own registration: its actions, its script constants, and at design time its property
/// editors and pages.
void RegisterRegistryUnit(bool designTime);
