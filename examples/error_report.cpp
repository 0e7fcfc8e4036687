// Reads a file with faults. Each fault is reported, and the read goes on.
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
    "#1=PERSON('Ada','old');\n"         // not an integer: omitted
    "#2=WINDOW('Skylight');\n"          // not in the schema: left out
    "#3=DOOR('Door',#1,0.9,.AJAR.);\n"  // no such enumerator: the first one is used
    "#4=WALL('Wall',#3,2.5,(#9));\n"    // a door is not a person, and no record has number 9
    "ENDSEC;\n"
    "END-ISO-10303-21;\n";

// The error procedure receives each report as one complete line. ErrShow returns whether the budget of the transfer
// allows one more. There may be no current model: Read sets one, Write does not.
void ShowReport(const char* text) {
  STEPmodel* model = CurrentModel();
  if (!model || model->ErrShow()) std::printf("  %s\n", text);
}

// A destroyed model remains the current one, so a program that has several models sets null in time.
bool WriteFails(steprt::Model& model, const std::string& path) {
  CurrentModel(nullptr);
  return model.Write(path) == -1;  // reports "Can't create file"
}

}  // namespace

int main(int count, char** arguments) {
  const std::string folder = count > 1 ? arguments[1] : ".";
  const std::string path = folder + "/faults.stp";
  std::ofstream(path) << kFile;

  proj::schema.errorProc = ShowReport;
  steprt::Model model(&proj::schema);
  model.ErrShow(4);
  const int errors = model.Read(path, true);
  std::printf("%d errors, 4 of them shown\n", errors);

  int instances = 0;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++instances;
  std::printf("%d of 4 instances were read\n", instances);
  return errors == 5 && instances == 3 && WriteFails(model, folder + "/no such folder/faults.stp") ? 0 : 1;
}
