// Modules: applications loaded into the host, called through their entry point. Keeps for each its
// LISP functions by code and the call that is running, and lets nothing escape from a call: an
// exception ends the command with a message, and undo groups left open are closed.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/lisp/value.h"
#include "platform/acad_module.h"

namespace drafting {

class Session;

class Modules {
 public:
  explicit Modules(Session& session);
  ~Modules();

  // Loads a module file, or takes one that is linked into the program; sends it the start message
  // and tells it of the open drawing.
  base::Status load(const std::string& path);
  base::Status attach(const std::string& name, AcrxEntryPoint entry);
  // Sends the closing messages. Refused while a module is on the stack.
  base::Status unload(std::string_view name);
  void unloadAll();
  std::vector<std::string> names() const;

  void sendToAll(AcRx::AppMsgCode message);
  bool onStack() const { return !calls_.empty(); }
  bool isPackage(const void* package) const;

  // --- what a module asks for while it is called
  bool defineFunction(const std::string& name, int code);
  bool undefineFunction(const std::string& name, int code);
  void noteCommandGroup(const std::string& group);  // goes with the module

  // What is being asked of the module on top of the stack.
  struct Call {
    void* package = nullptr;
    int functionCode = 0;
    std::vector<lisp::Value> arguments;
    lisp::Value result;
  };
  Call* currentCall() { return calls_.empty() ? nullptr : calls_.back(); }

  // Runs a command of the module `package` (null: of none) as a call of it.
  void runCommand(void* package, const std::function<void()>& code);

 private:
  struct Module;
  // Nothing escapes from the code, and undo groups that it left open are closed when it fails.
  void guarded(const std::function<void()>& code);
  Module* find(std::string_view name) const;
  base::Status start(std::unique_ptr<Module> module);
  void send(Module& module, AcRx::AppMsgCode message, Call& call);
  lisp::Value invoke(Module& module, int code, const std::vector<lisp::Value>& arguments);

  Session& session_;
  std::vector<std::unique_ptr<Module>> modules_;
  std::vector<Call*> calls_;
};

}  // namespace drafting
