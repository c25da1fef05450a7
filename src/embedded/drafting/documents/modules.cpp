#include "embedded/drafting/documents/modules.h"

#include <algorithm>
#include <exception>

#include "embedded/base/text.h"
#include "embedded/drafting/documents/dynamic_library.h"
#include "embedded/drafting/documents/session.h"
#include "platform/framework_exceptions.h"

namespace drafting {

struct Modules::Module {
  std::string name;
  AcrxEntryPoint entry = nullptr;
  DynamicLibrary library;
  std::vector<std::pair<std::string, int>> functions;
  std::vector<std::string> commandGroups;
};

Modules::Modules(Session& session) : session_(session) {}
Modules::~Modules() = default;

base::Status Modules::load(const std::string& path) {
  auto module = std::make_unique<Module>();
  auto library = DynamicLibrary::open(path);
  if (!library.ok()) return library.status();
  module->library = std::move(*library);
  module->name = path.substr(path.find_last_of("/\\") + 1);
  const auto version =
      reinterpret_cast<AcrxGetApiVersion>(module->library.symbol("acrxGetApiVersion"));
  module->entry = reinterpret_cast<AcrxEntryPoint>(module->library.symbol("acrxEntryPoint"));
  if (!version || !module->entry) {
    return base::Status::failure(
        path + ": " + std::string(session_.say("不是应用程序模块", "is no application module")));
  }
  if (version() != kAcadApiVersion) {
    return base::Status::failure(
        path + ": " +
        std::string(
            session_.say("是为另一版本的主程序编译的", "is made for another version of the host")));
  }
  return start(std::move(module));
}

base::Status Modules::attach(const std::string& name, AcrxEntryPoint entry) {
  auto module = std::make_unique<Module>();
  module->name = name;
  module->entry = entry;
  return start(std::move(module));
}

base::Status Modules::start(std::unique_ptr<Module> module) {
  if (find(module->name)) {
    return base::Status::failure(module->name + ": " +
                                 std::string(session_.say("已经加载", "is loaded already")));
  }
  modules_.push_back(std::move(module));
  Module& loaded = *modules_.back();
  Call call;
  send(loaded, AcRx::kInitAppMsg, call);
  send(loaded, AcRx::kLoadDwgMsg, call);
  return {};
}

Modules::Module* Modules::find(std::string_view name) const {
  for (const auto& module : modules_) {
    if (base::equalsNoCase(module->name, name)) return module.get();
  }
  return nullptr;
}

base::Status Modules::unload(std::string_view name) {
  Module* module = find(name);
  if (!module) {
    return base::Status::failure(std::string(name) + ": " +
                                 std::string(session_.say("没有加载", "isn't loaded")));
  }
  if (onStack()) {
    return base::Status::failure(
        std::string(name) + ": " +
        std::string(session_.say("正在运行，不能卸载", "is running and can't be unloaded")));
  }
  Call call;
  send(*module, AcRx::kUnloadDwgMsg, call);
  send(*module, AcRx::kUnloadAppMsg, call);
  // What it left registered would lead into code that is gone.
  for (const auto& [function, code] : module->functions) session_.lisp.undefine(function);
  for (const std::string& group : module->commandGroups) session_.commands.removeGroup(group);
  std::erase_if(modules_, [module](const auto& one) { return one.get() == module; });
  return {};
}

void Modules::unloadAll() {
  while (!modules_.empty() && !onStack()) {
    if (!unload(modules_.back()->name)) return;
  }
}

std::vector<std::string> Modules::names() const {
  std::vector<std::string> names;
  for (const auto& module : modules_) names.push_back(module->name);
  return names;
}

bool Modules::isPackage(const void* package) const {
  return std::any_of(modules_.begin(), modules_.end(),
                     [package](const auto& module) { return module.get() == package; });
}

void Modules::sendToAll(AcRx::AppMsgCode message) {
  for (std::size_t i = 0; i < modules_.size(); ++i) {
    Call call;
    send(*modules_[i], message, call);
  }
}

void Modules::send(Module& module, AcRx::AppMsgCode message, Call& call) {
  call.package = &module;
  calls_.push_back(&call);
  guarded([&] { module.entry(message, &module); });
  calls_.pop_back();
}

void Modules::runCommand(void* package, const std::function<void()>& code) {
  Call call;
  call.package = package;
  calls_.push_back(&call);
  guarded(code);
  calls_.pop_back();
}

void Modules::guarded(const std::function<void()>& code) {
  const int depth = session_.database().journal().depth();
  std::string problem;
  try {
    code();
  } catch (CException* exception) {
    problem = base::utf8FromWide(exception->Message());
    exception->Delete();
  } catch (const std::exception& exception) {
    problem = exception.what();
  } catch (...) {
    problem = session_.say("未知异常", "unknown exception");
  }
  if (problem.empty()) return;
  session_.print("\n" + std::string(session_.say("应用程序错误: ", "Application error: ")) +
                 problem);
  while (session_.database().journal().depth() > depth) session_.database().journal().end();
}

bool Modules::defineFunction(const std::string& name, int code) {
  if (calls_.empty() || !calls_.back()->package || name.empty()) return false;
  auto& module = *static_cast<Module*>(calls_.back()->package);
  std::erase_if(module.functions,
                [&](const auto& function) { return base::equalsNoCase(function.first, name); });
  module.functions.emplace_back(name, code);
  session_.lisp.define(
      {name, false, [this, &module, code](lisp::Interpreter&, const std::vector<lisp::Value>& a) {
         return invoke(module, code, a);
       }});
  return true;
}

bool Modules::undefineFunction(const std::string& name, int code) {
  if (calls_.empty() || !calls_.back()->package) return false;
  auto& functions = static_cast<Module*>(calls_.back()->package)->functions;
  const auto found = std::find_if(functions.begin(), functions.end(), [&](const auto& function) {
    return function.second == code && base::equalsNoCase(function.first, name);
  });
  if (found == functions.end()) return false;
  functions.erase(found);
  session_.lisp.undefine(name);
  return true;
}

void Modules::noteCommandGroup(const std::string& group) {
  if (calls_.empty() || !calls_.back()->package) return;
  static_cast<Module*>(calls_.back()->package)->commandGroups.push_back(group);
}

lisp::Value Modules::invoke(Module& module, int code, const std::vector<lisp::Value>& arguments) {
  // A function that waits at a prompt isn't entered a second time; the prompt asks again.
  for (const Call* running : calls_) {
    if (running->package != &module || running->functionCode != code) continue;
    session_.print(session_.say("\n此函数正在运行。", "\nThe function is running already."));
    return {};
  }
  Call call;
  call.functionCode = code;
  call.arguments = arguments;
  send(module, AcRx::kInvkSubrMsg, call);
  return call.result;
}

}  // namespace drafting
