#include "coreapi/Vekoptions.h"

TVekOptionsObject::~TVekOptionsObject() = default;
void TVekOptionsObject::LoadOptions(const IVekOptionsReader& /*reader*/) {}
void TVekOptionsObject::SaveOptions(IVekOptionsWriter& /*writer*/) const {}
