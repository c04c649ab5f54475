// Running of stories and the wording of their outcome.
#include "host/story/story_run.h"

#include <exception>

#include "host/kit/text_line.h"
#include "host/story/story.h"
#include "host/story/story_player.h"

namespace quill::host {
namespace {

using Tell = std::function<void(const Text& line)>;

Text PlaceOf(const Text& file, int line) {
  return Concat({file, u":", Decimal(line), u": "});
}

std::vector<StoryDifference> DifferencesOf(const Text& file,
                                           const std::vector<StoryDifference>& all) {
  std::vector<StoryDifference> own;
  for (const StoryDifference& difference : all) {
    if (difference.story == FileName(file)) own.push_back(difference);
  }
  return own;
}

bool PlayFile(const StoryFile& file, const ParsedStory& parsed, const StageFactory& make_stage,
              const std::vector<StoryDifference>& differences, const Tell& tell) {
  bool is_good = true;
  const auto fail = [&](const Text& line) {
    is_good = false;
    tell(line);
  };
  for (const StoryFault& fault : parsed.faults) {
    fail(Concat({PlaceOf(file.name, fault.line), fault.message}));
  }
  if (!is_good) return false;
  try {
    const std::unique_ptr<Stage> stage = make_stage();
    StoryPlayer player(parsed.story, *stage, DifferencesOf(file.name, differences),
                       [&](const Step* step, const Text& message) {
                         fail(step != nullptr ? Concat({PlaceOf(file.name, step->line),
                                                        step->source, u": ", message})
                                              : Concat({file.name, u": at the end: ", message}));
                       });
    player.Play();
  } catch (const std::exception& error) {
    fail(Concat({file.name, u": there is no stage: ", FromUtf8(error.what())}));
  }
  return is_good;
}

}  // namespace

bool RunStories(const std::vector<StoryFile>& files, const StageFactory& make_stage,
                const StoryFile& differences, const Tell& tell) {
  const ParsedDifferences list = ParseDifferences(differences.bytes);
  for (const StoryFault& fault : list.faults) {
    tell(Concat({PlaceOf(differences.name, fault.line), fault.message}));
  }
  if (!list.faults.empty()) return false;

  int passed = 0;
  int failed = 0;
  for (const StoryFile& file : files) {
    const ParsedStory parsed = ParseStory(file.bytes);
    const bool is_good = PlayFile(file, parsed, make_stage, list.differences, tell);
    ++(is_good ? passed : failed);
    tell(Concat({is_good ? u"passed: " : u"FAILED: ", file.name, u": ", parsed.story.title}));
  }
  tell(Concat({Decimal(passed), u" passed, ", Decimal(failed), u" failed"}));
  return failed == 0;
}

}  // namespace quill::host
