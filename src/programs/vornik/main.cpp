// vornik: the drafting host and the module without windows.
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "embedded/base/text.h"
#include "programs/vornik/program.h"

namespace {

struct Row {
  std::string_view name;
  int (*run)(const vornik::Words&);
  std::string_view summary;
};

constexpr Row kCommands[] = {
    {"sample", vornik::sampleCommand, "make a complete install with the sample library"},
    {"run", vornik::runCommand, "feed a script to the command line"},
    {"place", vornik::placeCommand, "place circuits of the library in a drawing"},
    {"dump", vornik::dumpCommand, "print every object of a drawing"},
    {"convert", vornik::convertCommand, "turn a drawing into another file form"},
    {"bom", vornik::bomCommand, "count models by symbol: the parts list"},
    {"plot", vornik::plotCommand, "turn a drawing into a PDF, SVG or PNG"},
    {"row", vornik::rowCommand, "read and expand circuit data rows"},
    {"library", vornik::libraryCommand, "list, check, print and change a library of circuits"},
};

void printHelp(std::ostream& out) {
  out << "usage: vornik COMMAND ...\n\n";
  for (const Row& row : kCommands) {
    out << "  " << row.name << std::string(10 - row.name.size(), ' ') << row.summary << "\n";
  }
  out << "\n'vornik COMMAND --help' tells more.\n";
}

int run(const vornik::Words& words) {
  if (words.empty()) {
    printHelp(std::cerr);
    return vornik::kWrongUsage;
  }
  if (words[0] == "--help") {
    printHelp(std::cout);
    return vornik::kDone;
  }
  for (const Row& row : kCommands) {
    if (row.name == words[0]) return row.run({words.begin() + 1, words.end()});
  }
  std::cerr << "vornik: there is no command " << words[0] << "\n";
  printHelp(std::cerr);
  return vornik::kWrongUsage;
}

}  // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** arguments) {
  // Line ends are what the commands write, on every system.
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  vornik::Words words;
  for (int i = 1; i < count; ++i) words.push_back(base::utf8FromWide(arguments[i]));
  return run(words);
}
#else
int main(int count, char** arguments) { return run({arguments + 1, arguments + count}); }
#endif
