// What the program does with one file, step by step.
#ifndef PLAN_RUN_H
#define PLAN_RUN_H

#include <string>

namespace plan {

struct Job {
  std::string file;
  std::string folder;      // where the plans and the written model go; empty: nothing is written
  bool plansOnly = false;  // neither edit nor write the model
};

// Reads the file, lists what it holds, draws a plan of each storey, edits the model, writes it in both forms and reads
// both back. Says what fails, and returns false then.
bool Run(const Job& job);

}  // namespace plan

#endif
