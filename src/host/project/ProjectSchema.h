#pragma once

#include <string>

class Catalogue;
class IVekActionHost;

/// An XML schema (W3C, version 1.0) of project files with the types of the catalogue, for editors. It knows
/// names, values and their places; which property belongs to which type is told in its documentation, since
/// such a schema cannot make an element depend on an attribute. The host is what instances are made with.
std::string ProjectSchema(const Catalogue& catalogue, IVekActionHost& host);
