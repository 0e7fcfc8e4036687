// Reads a file that has faults. Each one costs a report and no more: the reading goes on.
//
//   error_report [FOLDER]
#include <cstdio>
#include <fstream>
#include <string>

#include "proj/schema.h"

namespace {

const char kFile[] =
    "ISO-10303-21;\n"
    "HEADER;\n"
    "FILE_SCHEMA(('PROJ'));\n"
    "ENDSEC;\n"
    "DATA;\n"
    "#1=PERSON('Ada','old');\n"         // no integer: 0 is taken, and the text is one attribute too many
    "#2=WINDOW('Skylight');\n"          // not in the schema: left out
    "#3=DOOR('Door',#1,0.9,.AJAR.);\n"  // no such enumerator: the first one is taken
    "#4=WALL('Wall',#3,2.5,(#9));\n"    // a door is no person, and nothing is number 9
    "ENDSEC;\n"
    "END-ISO-10303-21;\n";

// The error procedure gets each report as one finished line. ErrShow says whether the budget of the transfer still has
// room to show it.
void ShowReport(const char* text) {
  if (CurrentModel()->ErrShow()) std::printf("  %s\n", text);
}

}  // namespace

int main(int count, char** arguments) {
  std::string path = std::string(count > 1 ? arguments[1] : ".") + "/faults.stp";
  std::ofstream(path) << kFile;

  proj::Schema()->errorProc = ShowReport;
  proj::Model model;
  model.ErrShow(4);
  const int errors = model.Read(true, path.data());
  std::printf("%d errors, 4 of them shown\n", errors);

  int instances = 0;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++instances;
  std::printf("%d of 4 instances were read\n", instances);
  return errors == 6 && instances == 3 ? 0 : 1;
}
