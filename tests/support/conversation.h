// Tests written as text files: what is typed on the command line and what the host answers. A file
// holds several tests, each with a session and a folder of its own:
//
//   # Circle is drawn by its radius     starts a test
//   < CIRCLE 0,0 5      typed, with Enter; a lone < is Enter, <^ is Esc
//   | Command: CIRCLE   all that was printed since the last such check, line by line
//   @ CIRCLE 0,0 5      all entities of model space, one a line (describe.h), # standing for any
//                       handle; "@ none"
//   > (+ 1 2)           evaluated by the interpreter itself
//   = 3                 the value, as PRIN1 shows it
//   ! message           or the message of its failure, line by line
//   : word ...          something done to the session:
//       language chinese|english     the session starts in English
//       file NAME TEXT               a file in the test's folder
//       script NAME                  a file of the lines below, down to ": end"
//       copy DATA NAME               a copy of a file of tests/data
//       fault SERVICE N              the service's n-th call from now on fails
//       cancel                       Esc pressed while the host waits
//       contains NAME TEXT           the file in the test's folder holds the text
//       absent NAME                  there is no such file
//
// A line of blanks and lines beginning with ; count for nothing. $T stands for the test's folder,
// with slashes. The next line is done when the host asks for input, so that a check may stand
// within a command.
#pragma once

#include <functional>
#include <string>

#include "embedded/drafting/documents/session.h"

namespace test {

// Makes each test ready: called with the new session before the first line.
using Prepare = std::function<void(drafting::Session&)>;

// Registers every test of every .txt file in the folder (below the sources' root) with GoogleTest;
// a folder without any is a failing test.
void registerConversations(const std::string& folder, Prepare prepare = {});

}  // namespace test
