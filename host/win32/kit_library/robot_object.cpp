// The robot as a table of its members, and the turns that it takes in the message loop.
#include "host/win32/kit_library/robot_object.h"

#include <deque>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "com/com_error.h"
#include "com/late_bound.h"
#include "com/variant.h"
#include "host/kit/text_line.h"
#include "host/win32/import_table.h"
#include "host/win32/member_table.h"
#include "host/win32/window_picture.h"
#include "host/win32/window_robot.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using com::Variant;

// A value of its own, whatever was referred to.
Variant CopyOf(const VARIANT& value) {
  Variant copy;
  com::ThrowIfFailed(::VariantCopyInd(copy.get(), const_cast<VARIANT*>(&value)));
  return copy;
}

class Robot final : public TableObject {
 public:
  Robot() : TableObject(kRobotProgId) {
    Define(Members());
    is_alive_ = true;
  }

  [[nodiscard]] static bool IsAlive() noexcept { return is_alive_; }

 private:
  struct Step {
    com::LateBound object;
    Text member;
    std::vector<Variant> arguments;
  };

  ~Robot() override { is_alive_ = false; }

  std::vector<Member> Members() {
    return {
        {u"Plan", [this](const VARIANT& object, const Text& member,
                         Given arguments) { Plan(object, member, arguments); }},
        {u"Press", [this](const Text& control) { Press(control, ui::kLeftButton); }},
        {u"PressWith",
         [this](const Text& control, std::int16_t button) { Press(control, button); }},
        {u"Click", [this](const Text& control) { robot_.Click(control); }},
        {u"Tab", [this](const Text& caption) { robot_.ClickTab(caption); }},
        {u"Choose", [this](const Text& box, const Text& item) { robot_.Choose(box, item); }},
        {u"Type", [this](const Text& box, const Text& text) { robot_.Type(box, text); }},
        {u"Paste", [this](const Text& box, const Text& text) { robot_.Paste(box, text); }},
        {u"ScrollTo", [this](const Text& list, int row) { robot_.ScrollTo(list, row); }},
        {u"SelectRow", [this](const Text& list, int row) { robot_.SelectRows(list, {row}); }},
        {u"DoubleClickRow",
         [this](const Text& list, int row) { robot_.DoubleClickRow(list, row); }},
        {u"Picture",
         [this](const Text& path) {
           WritePng(TakeWindow(robot_.FormWindow()), std::filesystem::path(path));
         }},
        {u"Close", [this] { robot_.CloseForm(); }},
        {u"Read", [this](const Text& control,
                         const Text& property) { return robot_.Read(control, property); }},
        {u"IsShown", [this] { return robot_.FormShown(); }},
        {u"AnswerFile", [this](const Text& path) { files_.push_back(path); }},
        {u"Boxes", [this] { return Joined(std::exchange(boxes_, {}), u"\n"); }},
        {u"RefuseNextText",
         [] {
           const HMODULE plugin = GetModuleHandleW(L"kvrrcBHDGS.dll");
           return plugin != nullptr && RefuseNextText(plugin);
         }},
    };
  }

  void Plan(const VARIANT& called, const Text& member, Given arguments) {
    const auto object = com::ObjectOf(com::Referred(called));
    if (!object) throw RuntimeError(ErrorNumber::kObjectRequired);
    Step step{com::LateBound(object->get()), member, {}};
    for (const VARIANT& argument : arguments) step.arguments.push_back(CopyOf(argument));
    plan_.push_back(std::move(step));
  }

  void Press(const Text& control, std::int16_t button) {
    robot_.Press(control, button);
    robot_.Release(control, button);
  }

  void Turn() {
    const OpenBox box = FindOpenBox();
    if (box.window != nullptr) return Handle(box);
    const HWND form = robot_.FormWindow();
    if (is_in_step_ || box_in_hand_ != nullptr || form == nullptr || !IsWindowVisible(form) ||
        !IsWindowEnabled(form)) {
      return;
    }
    if (plan_.empty()) return robot_.CloseForm();
    const Step step = std::move(plan_.front());
    plan_.pop_front();
    is_in_step_ = true;
    Attempt([&] { Make(step); });
    is_in_step_ = false;
  }

  static void Make(const Step& step) {
    std::vector<VARIANT> arguments;
    for (const Variant& argument : step.arguments) arguments.push_back(*argument.get());
    const std::optional<DISPID> member =
        step.member.empty() ? std::optional<DISPID>(DISPID_VALUE) : step.object.Find(step.member);
    if (!member) throw RuntimeError(ErrorNumber::kMemberNotFound);
    (void)step.object.CallWith(*member, arguments);
  }

  void Handle(const OpenBox& box) {
    if (box_in_hand_ == box.window) return;
    box_in_hand_ = box.window;
    Attempt([&] {
      if (!box.asks_for_file) {
        boxes_.push_back(Concat({box.caption, u": ", ReplaceAll(box.text, kLineBreak, u" / ")}));
        return AnswerBox(box);
      }
      std::vector<Text> paths;
      if (!files_.empty()) {
        paths.push_back(std::move(files_.front()));
        files_.pop_front();
      }
      AnswerBox(box, paths);
    });
    box_in_hand_ = nullptr;
  }

  // Nothing may escape into the message loop.
  template <class Body>
  void Attempt(Body&& body) noexcept {
    try {
      body();
    } catch (...) {
      boxes_.push_back(Concat({u"Robot: ", CurrentRuntimeError().description()}));
    }
  }

  inline static bool is_alive_ = false;

  const WindowRobot robot_{u"frmrcBHDGS"};
  std::deque<Step> plan_;
  std::deque<Text> files_;
  std::vector<Text> boxes_;
  bool is_in_step_ = false;
  HWND box_in_hand_ = nullptr;
  const Heartbeat heartbeat_{[this] { Turn(); }};
};

}  // namespace

com::ComPtr<IDispatch> MakeRobotObject() {
  if (Robot::IsAlive()) throw RuntimeError(ErrorNumber::kCannotCreateObject);
  return com::ComPtr<IDispatch>::Adopt(new Robot);
}

}  // namespace quill::host
