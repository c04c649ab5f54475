// The parts that the dialog's design repeats: pages, option rows, labelled lists, tab order.
#pragma once

#include "dialog/option_table.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/list_box.h"

namespace quill {

ui::Frame& AddFrame(ui::Form& form, Text name, TextView caption, const ui::Bounds& bounds,
                    bool visible = true);

// A list of many rows with extended selection, under a label of its own. `label` is not copied.
ui::ListBox& AddMapList(ui::Form& form, ui::Control& container, Text name, Text label_name,
                        TextView label, const ui::Bounds& bounds);

// Label, control and note of an option, with its initial value; number lists stay empty.
void AddOption(ui::Form& form, const Option& option);

// Adds the numbers to all number lists, in the order of the options. Neighbours of the same range
// are filled together, one number at a time.
void FillNumberLists(ui::Form& form);

}  // namespace quill
