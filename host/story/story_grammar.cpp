// The table of lines.
#include "host/story/story_grammar.h"

namespace quill::host {
namespace {

using enum StepKind;
constexpr StepBody kLines = StepBody::kLines;
constexpr StepBody kSteps = StepBody::kSteps;
constexpr StepBody kNone = StepBody::kNone;
constexpr bool kGesture = true;

constexpr StepForm kForms[] = {
    {kTitle, u"title TEXT"},

    {kFile, u"file TEXT = TEXT"},
    {kFileOfBytes, u"file TEXT bytes TEXTS"},
    {kFileMissing, u"file TEXT missing"},
    {kFileOfLines, u"file TEXT", kLines},
    {kKitFailsFromNowOn, u"kit NAME fails from now on NUMBER TEXT"},
    {kKitFails, u"kit NAME fails NUMBER TEXT"},
    {kKitRefusesReports, u"kit refuses reports"},
    {kKitWorks, u"kit works"},
    {kClock, u"clock NUMBER"},
    {kNumberRight, u"right TEXT = number NUMBER"},
    {kRight, u"right TEXT = TEXT"},
    {kFailingRight, u"right TEXT fails"},

    {kReplyNew, u"reply new"},
    {kReplyFixed, u"reply fixed TEXT = TEXT"},
    {kReplyNoMods, u"reply no mods"},
    {kReplyMods, u"reply mods TEXTS"},
    {kReplyNoMaps, u"reply no maps"},
    {kReplyMap, u"reply map TEXT TEXT TEXT"},
    {kReplyRaw, u"reply raw NUMBER = TEXT"},
    {kReplyEncodes, u"reply encodes NUMBER = TEXTS"},
    {kReplyFieldCount, u"reply has NUMBER fields"},
    {kReplySetting, u"reply TEXT = TEXT"},

    {kHostSetsRightsOfSuperAdministrator, u"host sets rights of super-administrator"},
    {kHostSetsRights, u"host sets rights"},
    {kHostOpensWithoutTarget, u"host opens profile NUMBER without target"},
    {kHostOpens, u"host opens profile NUMBER target TEXT"},
    {kHostHides, u"host hides"},
    {kHostRepliesWithPayload, u"host replies with payload TEXT"},
    {kHostRepliesWith, u"host replies with TEXT"},
    {kHostReplies, u"host replies"},

    {kType, u"type NAME TEXT", kNone, kGesture},
    {kPaste, u"paste NAME TEXT", kNone, kGesture},
    {kErase, u"erase NAME NUMBER", kNone, kGesture},
    {kChoose, u"choose NAME TEXT", kNone, kGesture},
    {kScrollBy, u"scroll NAME by NUMBER", kNone, kGesture},
    {kScrollTo, u"scroll NAME to NUMBER", kNone, kGesture},
    {kTab, u"tab TEXT", kNone, kGesture},
    {kClick, u"click NAME", kNone, kGesture},
    {kSelect, u"select NAME ROWS", kNone, kGesture},
    {kDoubleClickBelow, u"double-click NAME below", kNone, kGesture},
    {kDoubleClick, u"double-click NAME NUMBER", kNone, kGesture},
    {kKey, u"key NAME TEXT", kNone, kGesture},
    {kPress, u"press NAME BUTTON", kNone, kGesture},
    {kRelease, u"release NAME BUTTON", kNone, kGesture},
    {kPush, u"push NAME BUTTON", kNone, kGesture},
    {kClose, u"close", kNone, kGesture},
    {kAnswerCancel, u"answer cancel"},
    {kAnswer, u"answer TEXTS"},

    {kDuringBox, u"during box", kSteps},
    {kRepeat, u"repeat NUMBER times", kSteps},
    {kEnd, u"end"},

    {kExpectDialogShown, u"expect dialog shown"},
    {kExpectDialogHidden, u"expect dialog hidden"},
    {kExpectDialogPointer, u"expect dialog pointer = NAME"},
    {kExpectScreenPointer, u"expect screen pointer = NAME"},
    {kExpectPending, u"expect pending = TEXT"},
    {kExpectNoBox, u"expect no box"},
    {kExpectBoxOfLines, u"expect box TEXT", kLines},
    {kExpectBox, u"expect box TEXT PATTERN"},
    {kExpectTrappedNotSent, u"expect trapped TEXT NUMBER TEXT not sent"},
    {kExpectTrapped, u"expect trapped TEXT NUMBER TEXT"},
    {kExpectNoLog, u"expect no log"},
    {kExpectLog, u"expect log PATTERN"},
    {kExpectNoReport, u"expect no report"},
    {kExpectReport, u"expect report PATTERN"},
    {kExpectNoFileDialog, u"expect no file dialog"},
    {kExpectFileDialog, u"expect file dialog TEXT"},
    {kExpectFileMissing, u"expect file TEXT missing"},
    {kExpectFileOfLines, u"expect file TEXT", kLines},
    {kExpectFile, u"expect file TEXT IS TEXT"},
    {kExpectNoRequest, u"expect no request NAME"},
    {kExpectRequestEnvelope, u"expect request NAME envelope TEXT"},
    {kExpectRequest, u"expect request NAME = TEXT"},
    {kExpectPayload, u"expect payload IS TEXT"},
    {kExpectPayloadFieldCount, u"expect payload fields = NUMBER"},
    {kExpectPayloadMod, u"expect payload mod = TEXT"},
    {kExpectPayloadMapCount, u"expect payload maps = NUMBER"},
    {kExpectPayloadMap, u"expect payload map NUMBER = TEXT"},
    {kExpectPayloadText, u"expect payload text NUMBER = TEXT"},
    {kExpectPayloadField, u"expect payload NUMBER = TEXT"},
    {kExpectVersion, u"expect version = TEXT"},
    {kExpectRecord, u"expect record NAME = TEXT"},
    {kExpectNoRows, u"expect NAME no rows"},
    {kExpectRowsInAnyOrder, u"expect NAME rows in any order", kLines},
    {kExpectRows, u"expect NAME rows", kLines},
    {kExpectRow, u"expect NAME row NUMBER = TEXT"},
    {kExpectRowData, u"expect NAME data NUMBER = NUMBER"},
    {kExpectProperty, u"expect NAME NAME IS TEXT"},
};

}  // namespace

std::span<const StepForm> StepForms() noexcept {
  return kForms;
}

}  // namespace quill::host
