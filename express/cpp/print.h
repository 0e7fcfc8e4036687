// The text of each generated file.
#ifndef STEPRT_EXPRESS_CPP_PRINT_H
#define STEPRT_EXPRESS_CPP_PRINT_H

#include <string>

#include "express/cpp/program.h"

namespace express::cpp {

std::string PrintHeader(const Program& program);
std::string PrintTables(const Program& program);
// Part `part` of `parts`, counted from 0.
std::string PrintPart(const Program& program, int part, int parts);
std::string PrintModule(const Program& program);

}  // namespace express::cpp

#endif
