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
    {u"title TEXT", kTitle},

    {u"file TEXT = TEXT", kFile},
    {u"file TEXT bytes TEXTS", kFileOfBytes},
    {u"file TEXT missing", kFileMissing},
    {u"file TEXT", kFileOfLines, kLines},
    {u"kit NAME fails from now on NUMBER TEXT", kKitFailsFromNowOn},
    {u"kit NAME fails NUMBER TEXT", kKitFails},
    {u"kit refuses reports", kKitRefusesReports},
    {u"kit works", kKitWorks},
    {u"clock NUMBER", kClock},
    {u"right TEXT = number NUMBER", kNumberRight},
    {u"right TEXT = TEXT", kRight},
    {u"right TEXT fails", kFailingRight},

    {u"reply new", kReplyNew},
    {u"reply fixed TEXT = TEXT", kReplyFixed},
    {u"reply no mods", kReplyNoMods},
    {u"reply mods TEXTS", kReplyMods},
    {u"reply no maps", kReplyNoMaps},
    {u"reply map TEXT TEXT TEXT", kReplyMap},
    {u"reply raw NUMBER = TEXT", kReplyRaw},
    {u"reply encodes NUMBER = TEXTS", kReplyEncodes},
    {u"reply has NUMBER fields", kReplyFieldCount},
    {u"reply TEXT = TEXT", kReplySetting},

    {u"host sets rights of super-administrator", kHostSetsRightsOfSuperAdministrator},
    {u"host sets rights", kHostSetsRights},
    {u"host opens profile NUMBER without target", kHostOpensWithoutTarget},
    {u"host opens profile NUMBER target TEXT", kHostOpens},
    {u"host hides", kHostHides},
    {u"host replies with payload TEXT", kHostRepliesWithPayload},
    {u"host replies with TEXT", kHostRepliesWith},
    {u"host replies", kHostReplies},

    {u"type NAME TEXT", kType, kNone, kGesture},
    {u"paste NAME TEXT", kPaste, kNone, kGesture},
    {u"erase NAME NUMBER", kErase, kNone, kGesture},
    {u"choose NAME TEXT", kChoose, kNone, kGesture},
    {u"scroll NAME by NUMBER", kScrollBy, kNone, kGesture},
    {u"scroll NAME to NUMBER", kScrollTo, kNone, kGesture},
    {u"tab TEXT", kTab, kNone, kGesture},
    {u"click NAME", kClick, kNone, kGesture},
    {u"select NAME ROWS", kSelect, kNone, kGesture},
    {u"double-click NAME below", kDoubleClickBelow, kNone, kGesture},
    {u"double-click NAME NUMBER", kDoubleClick, kNone, kGesture},
    {u"key NAME TEXT", kKey, kNone, kGesture},
    {u"keys NAME TEXT HELD", kStrike, kNone, kGesture},
    {u"menu NAME row NUMBER TEXT", kMenuAtRow, kNone, kGesture},
    {u"menu NAME TEXT", kMenu, kNone, kGesture},
    {u"menu NAME", kMenuLeft, kNone, kGesture},
    {u"alt TEXT HELD", kAccessKey, kNone, kGesture},
    {u"press NAME BUTTON", kPress, kNone, kGesture},
    {u"release NAME BUTTON", kRelease, kNone, kGesture},
    {u"push NAME BUTTON", kPush, kNone, kGesture},
    {u"close", kClose, kNone, kGesture},
    {u"answer cancel", kAnswerCancel},
    {u"answer double-click TEXT", kAnswerByDoubleClick},
    {u"answer TEXTS", kAnswer},

    {u"during box", kDuringBox, kSteps},
    {u"during file dialog", kDuringFileDialog, kSteps},
    {u"repeat NUMBER times", kRepeat, kSteps},
    {u"end", kEnd},

    {u"expect dialog shown", kExpectDialogShown},
    {u"expect dialog hidden", kExpectDialogHidden},
    {u"expect dialog pointer = NAME", kExpectDialogPointer},
    {u"expect screen pointer = NAME", kExpectScreenPointer},
    {u"expect pending = TEXT", kExpectPending},
    {u"expect at most NUMBER gestures", kExpectGestures},
    {u"expect menu", kExpectMenu, kLines},
    {u"expect no box", kExpectNoBox},
    {u"expect box TEXT", kExpectBoxOfLines, kLines},
    {u"expect box TEXT PATTERN", kExpectBox},
    {u"expect trapped TEXT NUMBER TEXT not sent", kExpectTrappedNotSent},
    {u"expect trapped TEXT NUMBER TEXT", kExpectTrapped},
    {u"expect no log", kExpectNoLog},
    {u"expect log PATTERN", kExpectLog},
    {u"expect no report", kExpectNoReport},
    {u"expect report PATTERN", kExpectReport},
    {u"expect no file dialog", kExpectNoFileDialog},
    {u"expect file dialog TEXT in TEXT", kExpectFileDialogIn},
    {u"expect file dialog TEXT", kExpectFileDialog},
    {u"expect file TEXT missing", kExpectFileMissing},
    {u"expect file TEXT", kExpectFileOfLines, kLines},
    {u"expect file TEXT IS TEXT", kExpectFile},
    {u"expect no request NAME", kExpectNoRequest},
    {u"expect request NAME envelope TEXT", kExpectRequestEnvelope},
    {u"expect request NAME = TEXT", kExpectRequest},
    {u"expect payload IS TEXT", kExpectPayload},
    {u"expect payload fields = NUMBER", kExpectPayloadFieldCount},
    {u"expect payload mod = TEXT", kExpectPayloadMod},
    {u"expect payload maps = NUMBER", kExpectPayloadMapCount},
    {u"expect payload map NUMBER = TEXT", kExpectPayloadMap},
    {u"expect payload text NUMBER = TEXT", kExpectPayloadText},
    {u"expect payload NUMBER = TEXT", kExpectPayloadField},
    {u"expect version = TEXT", kExpectVersion},
    {u"expect record NAME = TEXT", kExpectRecord},
    {u"expect NAME no rows", kExpectNoRows},
    {u"expect NAME rows in any order", kExpectRowsInAnyOrder, kLines},
    {u"expect NAME rows", kExpectRows, kLines},
    {u"expect NAME row NUMBER = TEXT", kExpectRow},
    {u"expect NAME data NUMBER = NUMBER", kExpectRowData},
    {u"expect NAME NAME IS TEXT", kExpectProperty},
};

}  // namespace

std::span<const StepForm> StepForms() noexcept {
  return kForms;
}

}  // namespace quill::host
