// The bars as data, and the tables.
#include "bench/bars.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "bench/base64_bench.h"
#include "bench/base64_coders.h"
#include "bench/reply_bench.h"

namespace quill::bench {
namespace {

// Ours, measured, divided by what it is compared with; at most `limit`.
struct Bar {
  std::string what;
  std::optional<double> measured;
  double limit;
};

std::optional<double> Ratio(std::optional<double> ours, std::optional<double> theirs) {
  if (!ours || !theirs) return std::nullopt;
  return *ours / *theirs;
}

// What each map of a reply costs, in nanoseconds: what the reply takes beyond one without maps. The
// file kit's part is taken off, because the kit is the host's.
std::optional<double> TimePerMap(const Measurements& measured, int maps, const std::string& who) {
  const auto time = [&](int count, const std::string& whose) {
    return measured.Find(Name({"reply", std::to_string(count), whose}));
  };
  const auto whole = time(maps, who);
  const auto empty = time(0, who);
  if (!whole || !empty || maps == 0) return std::nullopt;
  const bool has_kit = who == kOurs || who == "dialog";
  const double kit = has_kit ? time(maps, "kit").value_or(0) - time(0, "kit").value_or(0) : 0;
  return (*whole - *empty - kit) / maps;
}

void AddBase64Bars(const Measurements& measured, std::vector<Bar>& bars) {
  for (const char* const direction : {"encode", "decode"}) {
    for (const std::size_t size : kTextSizes) {
      const auto name = [&](const char* who) {
        return Name({direction, std::to_string(size), who});
      };
      for (const Base64Coder& coder : OtherBase64Coders()) {
        const std::string who = coder.name;
        const bool is_record = who == "modp_b64";
        if (who == kFloor || (is_record && size > kLongestField)) continue;
        bars.push_back({name(coder.name),
                        Ratio(measured.Find(name(kOurs)), measured.Find(name(coder.name))),
                        is_record ? 1.2 : 1.0});
      }
    }
  }
}

void AddReplyBars(const Measurements& measured, std::vector<Bar>& bars) {
  std::optional<double> least;
  std::optional<double> most;
  for (const int maps : kMapCounts) {
    const auto time = TimePerMap(measured, maps, kOurs);
    if (!time) continue;
    least = std::min(least.value_or(*time), *time);
    most = std::max(most.value_or(*time), *time);
  }
  bars.push_back({"reply: slowest map to fastest, all sizes", Ratio(most, least), 1.5});
  for (const int maps : kMapCounts) {
    if (maps == 0) continue;
    bars.push_back(
        {Name({"reply", std::to_string(maps), "split, decode, take apart by hand"}),
         Ratio(TimePerMap(measured, maps, kOurs), TimePerMap(measured, maps, "by_hand_apart")),
         1.5});
  }
}

// The rest of our own work, which has a bar only where there is something to compare it with.
struct Work {
  const char* what;
  const char* name;
  const char* compared_with;  // null: nothing
};
constexpr Work kOtherWork[] = {
    {"start payload, no map", "payload/0", nullptr},
    {"start payload, 255 maps", "payload/255", nullptr},
    {"catalogue switch", "catalogue", nullptr},
    {"filling the available maps", "available", nullptr},
    {"adding 254 maps by the key", "add/255", nullptr},
    {"removing every second of 255", "remove/255", nullptr},
    {"refresh of 255 rows", "refresh/255", nullptr},
    {"shuffle of 255 (std::shuffle)", "shuffle/255/ours", "shuffle/255/std::shuffle"},
    {"settings saved, 255 maps", "settings/save", nullptr},
    {"settings loaded, 255 maps", "settings/load", nullptr},
    {"Wine: opening (bare template)", "wine/opening", "wine/opening_bare_template"},
    {"Wine: mod change", "wine/mod_change", nullptr},
    {"Wine: refresh of 255 rows", "wine/refresh_255", nullptr},
    {"Wine: start to request file", "wine/start_to_request", nullptr},
};

}  // namespace

void PrintRatios(const Measurements& measured) {
  std::printf("\nBase64: ours / theirs\n%-18s %10s", "characters", "ours, ns");
  for (const Base64Coder& coder : OtherBase64Coders()) std::printf(" %9s", coder.name);
  for (const char* const direction : {"encode", "decode"}) {
    for (const std::size_t size : kTextSizes) {
      const auto find = [&](const char* who) {
        return measured.Find(Name({direction, std::to_string(size), who}));
      };
      const auto ours = find(kOurs);
      if (!ours) continue;
      std::printf("\n%s %-11zu %10.1f", direction, size, *ours);
      for (const Base64Coder& coder : OtherBase64Coders()) {
        std::printf(" %9.2f", Ratio(ours, find(coder.name)).value_or(0));
      }
    }
  }
  // The last column has the entries taken apart by hand, too.
  std::printf("\n\nA reply: nanoseconds per map\n%-18s %9s %9s %9s %9s %9s %9s %9s", "maps", "ours",
              "dialog", "memcpy", "by hand", "ratio", "apart", "ratio");
  for (const int maps : kMapCounts) {
    const auto time = [&](const char* who) { return TimePerMap(measured, maps, who); };
    const auto ours = time(kOurs);
    if (!ours) continue;
    std::printf("\n%-18d %9.1f", maps, *ours);
    for (const char* const who : {"dialog", kFloor}) std::printf(" %9.1f", time(who).value_or(0));
    for (const char* const who : {"by_hand", "by_hand_apart"}) {
      std::printf(" %9.1f %9.2f", time(who).value_or(0), Ratio(ours, time(who)).value_or(0));
    }
  }
  std::printf("\n\n%-32s %12s %9s\n", "other work", "microseconds", "ratio");
  for (const Work& work : kOtherWork) {
    const auto time = measured.Find(work.name);
    if (!time) continue;
    std::printf("%-32s %12.2f", work.what, *time / 1000);
    if (work.compared_with != nullptr) {
      std::printf(" %9.2f", Ratio(time, measured.Find(work.compared_with)).value_or(0));
    }
    std::printf("\n");
  }
}

bool PrintBars(const Measurements& measured) {
  std::vector<Bar> bars;
  AddBase64Bars(measured, bars);
  AddReplyBars(measured, bars);
  // The median of pairs that were taken one right after the other.
  bars.push_back({"Wine: opening / bare template", measured.Find("wine/opening_ratio"), 1.15});
  bool all_met = true;
  std::printf("\n%-45s %6s %9s  %s\n", "bar (ours / that)", "limit", "measured", "met");
  for (const Bar& bar : bars) {
    if (!bar.measured) continue;
    const bool met = *bar.measured <= bar.limit;
    all_met = all_met && met;
    std::printf("%-45s %6.2f %9.2f  %s\n", bar.what.c_str(), bar.limit, *bar.measured,
                met ? "yes" : "NO");
  }
  return all_met;
}

}  // namespace quill::bench
