// The reference host without a screen: the command line over the headless layer.
#include <iostream>
#include <vector>

#include "host/cli/command_line.h"

int main(int argc, char** argv) {
  std::vector<quill::Text> words;
  for (int at = 1; at < argc; ++at) words.push_back(quill::FromUtf8(argv[at]));
  quill::host::Console console(std::cout, std::cerr);
  return quill::host::RunCommandLine(words, {quill::host::MakeHeadlessStage}, console);
}
