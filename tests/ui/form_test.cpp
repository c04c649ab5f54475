// The form: its collection, its modal display, and its end in every order of events.
#include <gtest/gtest.h>

#include "tests/ui/form_bench.h"
#include "ui/controls.h"

namespace quill::ui {
namespace {

using Strings = std::vector<std::string>;

class FormTest : public testing::Test {
 protected:
  FormBench bench;
  Form& form = *bench.form;
};

TEST_F(FormTest, FindsControlsByNameInAnyCaseAndTakesNoneTwice) {
  auto& box = form.Add<TextBox>(u"txtName", nullptr);
  EXPECT_EQ(form.Find(u"TXTNAME"), &box);
  EXPECT_EQ(form.Find(u"txtNam"), nullptr);
  EXPECT_EQ(&form.Get<TextBox>(u"TxtName"), &box);
  EXPECT_EQ(FailureOf([&] { static_cast<void>(form.Get<CheckBox>(u"txtName")); }), 13);
  EXPECT_EQ(FailureOf([&] { static_cast<void>(form.At(u"txtOther")); }), 730);

  box.access_key = u'N';
  EXPECT_EQ(form.FindAccessKey(u'n'), nullptr) << "it is not shown";
  bench.WhileShown([&] {
    EXPECT_EQ(form.FindAccessKey(u'n'), &box);
    EXPECT_EQ(form.FindAccessKey(u'm'), nullptr);
    EXPECT_EQ(form.FindAccessKey(0), nullptr);
  });

  EXPECT_EQ(FailureOf([&] { form.Add<CheckBox>(u"TXTName", nullptr); }), 5);
  const auto other = bench.MakeForm();
  EXPECT_EQ(FailureOf([&] { form.Add<CheckBox>(u"chk", other.get()); }), 5);
  EXPECT_EQ(form.children().size(), 1u);
  EXPECT_TRUE(other->children().empty());
}

TEST_F(FormTest, MovesTheFocusInTabOrderWhereItCanBeReached) {
  auto& strip =
      form.Add<TabStrip>(u"strip", nullptr, std::initializer_list<TextView>{u"One", u"Two"});
  auto& frame = form.Add<Frame>(u"fme", nullptr, u"");
  auto& last = form.Add<CheckBox>(u"chkLast", &frame);
  auto& box = form.Add<TextBox>(u"txt", nullptr);
  auto& check = form.Add<CheckBox>(u"chk", &frame);
  auto& off = form.Add<CheckBox>(u"chkOff", &frame);
  int index = 0;
  for (Control* const control :
       std::initializer_list<Control*>{&strip, &frame, &box, &check, &off, &last}) {
    control->SetTabIndex(index++);
  }
  off.SetEnabled(false);
  const auto at = [&](char16_t key, std::int16_t shift = 0) {
    const bool taken = form.focus()->Happened(KeyStruck{{key, shift}});
    return taken ? ToUtf8(form.focus()->name()) : "not taken";
  };
  bench.WhileShown([&] {
    form.Happened(FocusTaken{});
    EXPECT_EQ(form.focus(), &strip);
    EXPECT_EQ(at(kDownKey), "not taken") << "the native strip has a use for it";
    EXPECT_EQ(at(kTabKey), "txt");
    EXPECT_EQ(at(kEnterKey), "not taken");
    EXPECT_EQ(at(kTabKey), "chk");
    EXPECT_EQ(at(kTabKey), "chkLast");
    EXPECT_EQ(at(kTabKey), "strip");
    EXPECT_EQ(at(kTabKey, kShiftHeld), "chkLast");
    EXPECT_EQ(at(kRightKey), "chk") << "round inside the frame";
    EXPECT_EQ(at(kUpKey), "chkLast");
    EXPECT_EQ(at(kTabKey, kAltHeld), "not taken");

    EXPECT_EQ(at(kPageDownKey, kCtrlHeld), "chkLast");
    EXPECT_EQ(ToUtf8(strip.text()), "Two");
    EXPECT_EQ(at(kTabKey, kCtrlHeld), "chkLast");
    EXPECT_EQ(ToUtf8(strip.text()), "One");

    box.access_key = u'B';
    EXPECT_TRUE(form.Happened(AccessKeyStruck{u'b'}));
    EXPECT_EQ(form.focus(), &box);
    EXPECT_FALSE(form.Happened(AccessKeyStruck{u'x'}));

    box.SetVisible(false);
    EXPECT_EQ(form.focus(), &box) << "it is about to be shown again";
    box.SetVisible(true);
    box.SetEnabled(false);
    EXPECT_EQ(form.focus(), &check);
    frame.SetVisible(false);
    EXPECT_EQ(form.focus(), &strip);
  });
}

TEST_F(FormTest, KeepsNoControlWhosePeerCannotBeMade) {
  auto& frame = form.Add<Frame>(u"fme", nullptr, u"");
  for (const TextView failing : {u"MakePeer txt", u"Sync txt"}) {
    bench.toolkit.before_call = [&](TextView call) {
      if (call == failing) throw RuntimeError(ErrorNumber::kOutOfMemory);
    };
    EXPECT_EQ(FailureOf([&] { form.Add<TextBox>(u"txt", &frame); }), 7);
    EXPECT_EQ(form.Find(u"txt"), nullptr);
    EXPECT_TRUE(frame.children().empty());
  }
  bench.toolkit.before_call = nullptr;
  form.Add<TextBox>(u"txt", &frame);
  EXPECT_EQ(FormBench::Seen(form.At(u"txt"), u"order"), "0");
}

TEST_F(FormTest, EndsTheDisplayThatAFailingEventLeaves) {
  bench.toolkit.pump = []() -> bool { throw RuntimeError(1001, u"the host"); };
  EXPECT_EQ(FailureOf([&] { form.ShowModal(); }), 1001);
  EXPECT_FALSE(form.shown());
  EXPECT_EQ(FormBench::Seen(form, u"visible"), "false");
  EXPECT_EQ(bench.toolkit.ModalForm(), nullptr);
}

// An activation handler of the host's, say.
TEST_F(FormTest, ReturnsWhenItIsClosedWhileItIsBeingShown) {
  form.Add<TextBox>(u"txt", nullptr);
  bench.toolkit.pump = [] {
    ADD_FAILURE() << "a display that was over took an event";
    return false;
  };
  for (const TextView moment : {u"Sync frmMain", u"RunModal frmMain"}) {
    bool hidden = false;
    bench.toolkit.before_call = [&](TextView call) {
      if (call == moment && !std::exchange(hidden, true)) form.Hide();
    };
    form.ShowModal();
    EXPECT_TRUE(hidden);
    EXPECT_FALSE(form.shown());
    EXPECT_EQ(FormBench::Seen(form, u"visible"), "false");
  }
}

TEST_F(FormTest, UnloadsOnceInOrder) {
  form.Add<TextBox>(u"txt", nullptr);
  Strings order;
  form.on_unload = [&] {
    order.emplace_back(form.shown() ? "unload, shown" : "unload");
    form.Unload();
  };
  form.on_unloaded = [&] {
    order.emplace_back(form.unloaded() && !form.shown() ? "unloaded, hidden" : "too early");
    form.Unload();
  };
  bench.WhileShown([&] {
    bench.toolkit.before_call = [&](TextView call) { order.push_back(ToUtf8(call)); };
    form.Unload();
    bench.toolkit.before_call = nullptr;
    form.Unload();
  });
  EXPECT_EQ(order,
            (Strings{"unload, shown", "EndModal frmMain", "Sync frmMain", "unloaded, hidden"}));
  EXPECT_EQ(FailureOf([&] { form.ShowModal(); }), 91);

  Form alone(bench.toolkit, u"frmAlone", u"", 100, 100);  // nobody else keeps it
  alone.Unload();
  EXPECT_TRUE(alone.unloaded());
}

TEST_F(FormTest, UnloadsAllTheWayWhenStepsFail) {
  form.Add<TextBox>(u"txt", nullptr);
  bool told = false;
  form.on_unload = [] { throw RuntimeError(1001, u"first"); };
  form.on_unloaded = [&] {
    told = true;
    throw RuntimeError(1003, u"third");
  };
  bench.WhileShown([&] {
    bench.toolkit.before_call = [&](TextView call) {
      if (call == u"Sync frmMain") throw RuntimeError(1002, u"second");
    };
    EXPECT_EQ(FailureOf([&] { form.Unload(); }), 1001);
    bench.toolkit.before_call = nullptr;
  });
  EXPECT_TRUE(told);
  EXPECT_TRUE(form.unloaded());
  EXPECT_FALSE(form.shown());
}

TEST_F(FormTest, OutlivesTheHandlersThatCloseIt) {
  auto& button = form.Add<CommandButton>(u"cmd", nullptr);
  const std::weak_ptr<Form> watched = bench.form;
  form.on_unloaded = [&] { bench.form.reset(); };
  const auto text = std::make_shared<std::string>("alive");
  const std::weak_ptr<std::string> held_by_handler = text;
  button.on_click = [&button, held = text] {
    button.form().Unload();
    EXPECT_EQ(button.name(), u"cmd");
    EXPECT_EQ(*held, "alive");
  };
  bench.toolkit.pump = [&] {
    EXPECT_NE(watched.lock(), nullptr);
    watched.lock()->At(u"cmd").Happened(Clicked{});
    EXPECT_EQ(bench.form, nullptr);
    EXPECT_FALSE(watched.expired()) << "its display has not returned yet";
    return true;
  };
  bench.form->ShowModal();
  EXPECT_FALSE(watched.expired()) << "destruction is deferred to where no event is handled";
  bench.toolkit.RunDeferred();
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(held_by_handler.use_count(), 1);
}

}  // namespace
}  // namespace quill::ui
