// The lines that a story can hold, as one table.
#pragma once

#include <cstdint>
#include <span>

#include "support/text.h"

namespace quill::host {

enum class StepKind : std::uint8_t {
  kTitle,
  // Set-up.
  kFile,
  kFileOfLines,
  kFileOfBytes,
  kFileMissing,
  kKitFails,
  kKitFailsFromNowOn,
  kKitRefusesReports,
  kKitWorks,
  kClock,
  kRight,
  kNumberRight,
  kFailingRight,
  // The next reply.
  kReplyNew,
  kReplySetting,
  kReplyFixed,
  kReplyMods,
  kReplyNoMods,
  kReplyMap,
  kReplyNoMaps,
  kReplyRaw,
  kReplyEncodes,
  kReplyFieldCount,
  // Host calls.
  kHostSetsRights,
  kHostSetsRightsOfSuperAdministrator,
  kHostOpens,
  kHostOpensWithoutTarget,
  kHostHides,
  kHostReplies,
  kHostRepliesWith,
  kHostRepliesWithPayload,
  // The operator.
  kType,
  kPaste,
  kErase,
  kChoose,
  kScrollBy,
  kScrollTo,
  kTab,
  kClick,
  kSelect,
  kDoubleClick,
  kDoubleClickBelow,
  kKey,
  kStrike,
  kMenu,
  kMenuAtRow,
  kMenuLeft,
  kAccessKey,
  kPress,
  kRelease,
  kPush,
  kClose,
  kAnswerCancel,
  kAnswerByDoubleClick,
  kAnswer,
  // Blocks.
  kDuringBox,
  kDuringFileDialog,
  kRepeat,
  kEnd,
  // Expectations.
  kExpectDialogShown,
  kExpectDialogHidden,
  kExpectDialogPointer,
  kExpectScreenPointer,
  kExpectPending,
  kExpectGestures,
  kExpectMenu,
  kExpectNoBox,
  kExpectBox,
  kExpectBoxOfLines,
  kExpectTrapped,
  kExpectTrappedNotSent,
  kExpectNoLog,
  kExpectLog,
  kExpectNoReport,
  kExpectReport,
  kExpectNoFileDialog,
  kExpectFileDialog,
  kExpectFileDialogIn,
  kExpectFileMissing,
  kExpectFile,
  kExpectFileOfLines,
  kExpectNoRequest,
  kExpectRequest,
  kExpectRequestEnvelope,
  kExpectPayload,
  kExpectPayloadFieldCount,
  kExpectPayloadMod,
  kExpectPayloadMapCount,
  kExpectPayloadMap,
  kExpectPayloadField,
  kExpectPayloadText,
  kExpectVersion,
  kExpectRecord,
  kExpectNoRows,
  kExpectRows,
  kExpectRowsInAnyOrder,
  kExpectRow,
  kExpectRowData,
  kExpectProperty,
};

// What belongs to a line besides its own words.
enum class StepBody : std::uint8_t {
  kNone,
  kLines,  // at least one line that begins with "|"
  kSteps,  // steps up to "end"
};

struct StepForm {
  // Words that must stand so, and in capitals what is filled in:
  //   NAME    a word of letters, digits and "_" without quotes
  //   NUMBER  a whole number
  //   TEXT    any word, or a text in quotes
  //   PATTERN the same; may hold {line}
  //   TEXTS   one or more of them, to the end of the line
  //   BUTTON  left, right or middle; may be left out at the end of the line
  //   ROWS    row numbers and ranges such as 3-7, or "none", or "all", to the end of the line
  //   IS      "=", "!=", "contains" or "lacks"
  TextView pattern;
  StepKind kind;
  StepBody body = StepBody::kNone;
  bool is_gesture = false;  // "cannot" may stand before it
};

// The first form that fits a line counts.
[[nodiscard]] std::span<const StepForm> StepForms() noexcept;

}  // namespace quill::host
