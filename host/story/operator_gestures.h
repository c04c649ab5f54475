// What an operator does in a story, one row for each gesture: the pattern of its line and the call
// that makes it. A new gesture is a row here and a method of each of the two operators,
// headless::HeadlessOperator and WindowRobot.
#pragma once

#include <algorithm>
#include <vector>

#include "host/story/story_words.h"
#include "support/number_text.h"
#include "ui/fact.h"

namespace quill::host {

// Arguments of gestures. What cannot be understood fails with StoryFailure.
[[nodiscard]] std::int16_t ButtonOf(TextView name);      // "left", "right", "middle"
[[nodiscard]] ui::KeyStroke KeyStrokeOf(TextView name);  // "Alt+Home", "Ctrl+Z", "Del"
[[nodiscard]] char16_t CharacterOf(TextView text);
// How often a key that is pressed once, or "held", reaches the control.
[[nodiscard]] int TimesOf(TextView held);
// The words behind the first one: "none", "all" of so many rows, "3", "5-9".
[[nodiscard]] std::vector<int> RowsOf(const Words& words, int row_count);

// Keys and clicks that the longer gestures take.
[[nodiscard]] std::int64_t KeysOf(const Words& words);    // of the text in words[1]
[[nodiscard]] std::int64_t StepsOf(const Words& words);   // of the number in words[1]
[[nodiscard]] std::int64_t ClicksOn(const Words& words);  // the rows behind words[0]

template <class Operator>
struct Gesture {
  TextView pattern;  // as in StepForm
  void (*make)(Operator& person, const Words& words);
  std::int64_t (*effort)(const Words& words) = nullptr;  // null: one key or click
};

// The operator is a template parameter, so that no interface between has to repeat each gesture.
template <class Operator, class O = Operator&, class W = const Words&>
inline constexpr Gesture<Operator> kGestures[] = {
    {u"type NAME TEXT", [](O o, W w) { o.Type(w[0], w[1]); }, KeysOf},
    {u"paste NAME TEXT", [](O o, W w) { o.Paste(w[0], w[1]); }},
    {u"erase NAME NUMBER", [](O o, W w) { o.EraseLast(w[0], ToInt32(w[1])); }, StepsOf},
    {u"choose NAME TEXT", [](O o, W w) { o.Choose(w[0], w[1]); }},
    {u"scroll NAME by NUMBER", [](O o, W w) { o.ScrollBy(w[0], ToInt32(w[1])); }, StepsOf},
    {u"scroll NAME to NUMBER", [](O o, W w) { o.ScrollTo(w[0], ToInt32(w[1])); }},
    {u"tab TEXT", [](O o, W w) { o.ClickTab(w[0]); }},
    {u"click NAME", [](O o, W w) { o.Click(w[0]); }},
    {u"select NAME ROWS",
     [](O o, W w) { o.SelectRows(w[0], RowsOf(w, ToInt32(o.Read(w[0], u"count")))); }, ClicksOn},
    {u"double-click NAME below", [](O o, W w) { o.DoubleClickRow(w[0], -1); }},
    {u"double-click NAME NUMBER", [](O o, W w) { o.DoubleClickRow(w[0], ToInt32(w[1])); }},
    {u"key NAME TEXT", [](O o, W w) { o.Key(w[0], CharacterOf(w[1])); }},
    {u"keys NAME TEXT HELD", [](O o, W w) { o.Strike(w[0], KeyStrokeOf(w[1]), TimesOf(w[2])); }},
    {u"menu NAME row NUMBER TEXT", [](O o, W w) { o.ChooseFromMenu(w[0], ToInt32(w[1]), w[2]); }},
    {u"menu NAME TEXT", [](O o, W w) { o.ChooseFromMenu(w[0], -1, w[1]); }},
    {u"menu NAME", [](O o, W w) { o.ChooseFromMenu(w[0], -1, {}); }},
    {u"alt TEXT HELD", [](O o, W w) { o.PressAccessKey(CharacterOf(w[0]), TimesOf(w[1])); }},
    {u"press NAME BUTTON", [](O o, W w) { o.Press(w[0], ButtonOf(w[1])); }},
    {u"release NAME BUTTON", [](O o, W w) { o.Release(w[0], ButtonOf(w[1])); }},
    {u"push NAME BUTTON",
     [](O o, W w) {
       o.Press(w[0], ButtonOf(w[1]));
       o.Release(w[0], ButtonOf(w[1]));
     }},
    {u"close", [](O o, W) { o.CloseForm(); }},
};

// Makes the gesture of the row with that pattern.
template <class Operator>
void MakeGesture(Operator& person, TextView pattern, const Words& words) {
  const auto& rows = kGestures<Operator>;
  const auto* row = std::ranges::find(rows, pattern, &Gesture<Operator>::pattern);
  if (row == std::end(rows)) throw StoryFailure({u"there is no gesture ", pattern});
  row->make(person, words);
}

}  // namespace quill::host
