#include "host/win32/kit_library/robot_object.h"

#include <deque>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/dispatch_object.h"
#include "com/late_bound.h"
#include "com/library_use.h"
#include "com/variant.h"
#include "host/win32/failing_texts.h"
#include "host/win32/window_picture.h"
#include "host/win32/window_robot.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using com::Int32Of;
using com::TextOf;
using com::Variant;

// Arguments in calling order.
using Given = std::span<const VARIANT>;

// A value of its own, whatever was referred to.
Variant CopyOf(const VARIANT& value) {
  Variant copy;
  const HRESULT copied = ::VariantCopyInd(copy.get(), const_cast<VARIANT*>(&value));
  if (FAILED(copied)) throw com::ErrorOf(copied);
  return copy;
}

class Robot final : public com::DispatchObject {
 public:
  Robot() { is_alive_ = true; }

  [[nodiscard]] static bool IsAlive() noexcept { return is_alive_; }

  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                      EXCEPINFO* raised, UINT*) override;

 private:
  struct Member {
    TextView name;
    std::size_t arguments;
    bool takes_more;
    Variant (*call)(Robot& robot, Given given);
  };
  static const Member kMembers[];

  struct Step {
    com::LateBound object;
    Text member;
    std::vector<Variant> arguments;
  };

  ~Robot() override { is_alive_ = false; }

  void Plan(Given given) {
    IDispatch* object = nullptr;
    if (!com::ReadObject(com::Referred(given[0]), object)) {
      throw RuntimeError(ErrorNumber::kObjectRequired);
    }
    Step step{com::LateBound(object), TextOf(given[1]), {}};
    for (const VARIANT& argument : given.subspan(2)) step.arguments.push_back(CopyOf(argument));
    plan_.push_back(std::move(step));
  }

  Variant TakeBoxes() {
    Text joined;
    for (const Text& box : boxes_) joined += Concat({joined.empty() ? u"" : u"\n", box});
    boxes_.clear();
    return Variant::OfText(joined);
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
        return AcknowledgeBox(box);
      }
      std::vector<Text> paths;
      if (!files_.empty()) {
        paths.push_back(std::move(files_.front()));
        files_.pop_front();
      }
      AnswerFileBox(box, paths);
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

  const com::LibraryUse in_use_;
  const WindowRobot robot_{u"frmrcBHDGS"};
  std::deque<Step> plan_;
  std::deque<Text> files_;
  std::vector<Text> boxes_;
  bool is_in_step_ = false;
  HWND box_in_hand_ = nullptr;
  const Heartbeat heartbeat_{[this] { Turn(); }};
};

// A member's identifier is its position here, counted from 1.
const Robot::Member Robot::kMembers[] = {
    {u"Plan", 2, true, [](Robot& robot, Given given) { return robot.Plan(given), Variant(); }},
    {u"Press", 1, false,
     [](Robot& robot, Given given) {
       robot.robot_.Press(TextOf(given[0]), Button::kLeft);
       robot.robot_.Release(TextOf(given[0]), Button::kLeft);
       return Variant();
     }},
    {u"PressWith", 2, false,
     [](Robot& robot, Given given) {
       const auto button = static_cast<Button>(Int32Of(given[1]));
       robot.robot_.Press(TextOf(given[0]), button);
       robot.robot_.Release(TextOf(given[0]), button);
       return Variant();
     }},
    {u"Click", 1, false,
     [](Robot& robot, Given given) { return robot.robot_.Click(TextOf(given[0])), Variant(); }},
    {u"Tab", 1, false,
     [](Robot& robot, Given given) { return robot.robot_.ClickTab(TextOf(given[0])), Variant(); }},
    {u"Choose", 2, false,
     [](Robot& robot, Given given) {
       return robot.robot_.Choose(TextOf(given[0]), TextOf(given[1])), Variant();
     }},
    {u"Type", 2, false,
     [](Robot& robot, Given given) {
       return robot.robot_.Type(TextOf(given[0]), TextOf(given[1])), Variant();
     }},
    {u"Paste", 2, false,
     [](Robot& robot, Given given) {
       return robot.robot_.Paste(TextOf(given[0]), TextOf(given[1])), Variant();
     }},
    {u"ScrollTo", 2, false,
     [](Robot& robot, Given given) {
       return robot.robot_.ScrollTo(TextOf(given[0]), Int32Of(given[1])), Variant();
     }},
    {u"SelectRow", 2, false,
     [](Robot& robot, Given given) {
       return robot.robot_.SelectRows(TextOf(given[0]), {Int32Of(given[1])}), Variant();
     }},
    {u"DoubleClickRow", 2, false,
     [](Robot& robot, Given given) {
       return robot.robot_.DoubleClickRow(TextOf(given[0]), Int32Of(given[1])), Variant();
     }},
    {u"Picture", 1, false,
     [](Robot& robot, Given given) {
       const std::u16string path = TextOf(given[0]);
       WritePng(TakeWindow(robot.robot_.FormWindow()), std::filesystem::path(path));
       return Variant();
     }},
    {u"Close", 0, false, [](Robot& robot, Given) { return robot.robot_.CloseForm(), Variant(); }},
    {u"Read", 2, false,
     [](Robot& robot, Given given) {
       return Variant::OfText(robot.robot_.Read(TextOf(given[0]), TextOf(given[1])));
     }},
    {u"IsShown", 0, false,
     [](Robot& robot, Given) { return Variant::OfBoolean(robot.robot_.FormShown()); }},
    {u"AnswerFile", 1, false,
     [](Robot& robot, Given given) { return robot.files_.push_back(TextOf(given[0])), Variant(); }},
    {u"Boxes", 0, false, [](Robot& robot, Given) { return robot.TakeBoxes(); }},
    {u"RefuseNextText", 0, false,
     [](Robot&, Given) {
       const HMODULE plugin = GetModuleHandleW(L"kvrrcBHDGS.dll");
       return Variant::OfBoolean(plugin != nullptr && RefuseNextText(plugin));
     }},
};

STDMETHODIMP Robot::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  return com::FindNames(reserved, names, count, ids, [](const OLECHAR* name) {
    const TextView wanted(reinterpret_cast<const char16_t*>(name));
    for (std::size_t i = 0; i < std::size(kMembers); ++i) {
      if (EqualIgnoringCase(kMembers[i].name, wanted)) return static_cast<DISPID>(i) + 1;
    }
    return DISPID{DISPID_UNKNOWN};
  });
}

STDMETHODIMP Robot::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                           EXCEPINFO* raised, UINT*) {
  if (id < 1 || static_cast<std::size_t>(id) > std::size(kMembers)) return DISP_E_MEMBERNOTFOUND;
  const Member& member = kMembers[id - 1];
  const std::size_t count = given == nullptr ? 0 : given->cArgs;
  if (count < member.arguments || (count > member.arguments && !member.takes_more) ||
      (given != nullptr && given->cNamedArgs != 0)) {
    return DISP_E_BADPARAMCOUNT;
  }
  const com::ComPtr<IDispatch> kept_alive(this);
  try {
    std::vector<VARIANT> arguments;
    for (std::size_t i = count; i > 0; --i) arguments.push_back(given->rgvarg[i - 1]);
    Variant value = member.call(*this, arguments);
    if (result != nullptr) *result = value.Detach();
    return S_OK;
  } catch (...) {
    return com::LeaveExcepInfo(CurrentRuntimeError(), raised, kRobotProgId);
  }
}

}  // namespace

com::ComPtr<IDispatch> MakeRobotObject() {
  if (Robot::IsAlive()) throw RuntimeError(ErrorNumber::kCannotCreateObject);
  return com::ComPtr<IDispatch>::Adopt(new Robot);
}

}  // namespace quill::host
