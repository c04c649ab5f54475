// A form on a toolkit without a screen, and what came of it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "headless/headless_operator.h"
#include "headless/headless_toolkit.h"
#include "headless/memory_file_system.h"
#include "tests/doubles/failure_of.h"
#include "ui/form.h"

namespace quill::ui {

class FormBench {
 public:
  FormBench() : form(MakeForm()) {}

  std::shared_ptr<Form> MakeForm() {
    auto made = std::make_shared<Form>(toolkit, u"frmMain", u"Main", 9000, 4000);
    made->on_unhandled = [this](const RuntimeError& error, TextView handler) {
      unhandled.push_back(ToUtf8(handler) + " " + std::to_string(error.number()));
    };
    return made;
  }

  // Shows the form and plays `script` in it, as one event of the modal display.
  template <class Script>
  void WhileShown(Script script) {
    bool played = false;
    toolkit.pump = [&] {
      if (played) return false;
      played = true;
      script();
      return true;
    };
    form->ShowModal();
    toolkit.pump = nullptr;
  }

  [[nodiscard]] static std::string Seen(const Control& control, TextView property) {
    return ToUtf8(headless::MirrorOf(control).Property(property).value_or(u"(no such property)"));
  }

  headless::MemoryFileSystem files;
  headless::HeadlessToolkit toolkit{files};
  std::vector<std::string> unhandled;
  std::shared_ptr<Form> form;
  headless::HeadlessOperator hand{toolkit, [this] { return form.get(); }};
};

}  // namespace quill::ui
