// Settings files: what saving writes, what loading makes of any file, and what holds afterwards.
#include <gtest/gtest.h>

#include "tests/dialog/file_actions_bench.h"

namespace quill {
namespace {

using namespace std::string_view_literals;
using Strings = std::vector<std::string>;

const SelectedMap kRoadRage{u"Road Rage", u"DMK_01A.BMS", 0, false};
const SelectedMap kOilIsland{u"Oil Island A", u"CTF_04A.BMS", 7, false};
const SelectedMap kHarbour{u"Harbour", u"HARBOUR.BMS", 8, true};
constexpr const char* kSaved = "Success|Host Settings Saved Successfully.";

TEST(SettingsFile, WhatWouldComeBackWithALaterLoadIsSetAside) {
  struct Case {
    const char* old;
    bool set_aside;
  };
  for (const Case& it : {
           Case{"[Settings]\r\nMyNote=1\r\n; comment\r\n[Other]\r\nMap7=x\r\n", false},
           Case{"[Settings]\r\ncboMods=None\r\nMap0=a\r\nMap1=b\r\n", false},
           Case{"[Settings]\r\ncboMods=None\r\nMap0=a\r\n", false},
           Case{"no settings at all", false},
           Case{"", false},
           Case{"[Settings]\r\ncboMods=None\r\nMap0=a\r\nMap1=b\r\nMap2=0[-]0[-]DMM_01A.BMS\r\n",
                true},
           Case{"[Settings]\r\nMap100=0[-]0[-]DMM_01A.BMS\r\n", true},
           Case{"[Settings]\r\ncboMods=None\r\nMap01=0[-]0[-]DMM_01A.BMS\r\n", true},
           Case{"[Settings]\r\ncboMods=None\r\nMap1=a\r\nMap0=b\r\n", true},
           Case{"[Settings]\r\nMap0=a\r\ncboMods=None\r\n", true},
           Case{"[Settings]\r\nmap0=a\r\ncboMods=None\r\n", true},
           Case{"[Settings]\r\ncboMods=None\r\nMAP1=a\r\nMap0=b\r\n", true},
           Case{"[Settings]\r\nmaple=a\r\nmap=b\r\nmap2=c\r\nMAP01=d\r\ncboMods=None\r\n", false},
           Case{"[Settings]\r\nlblMapCnt=a\r\nfmeMap=b\r\ncmdSave=c\r\ntxtGametype=d\r\n", false},
           Case{"[Settings]\r\ntxtName=a\r\ntxtName=b\r\n", true},
           Case{"[Settings]\r\nlstMax.ListIndex=9\r\n", true},
           Case{"[Settings]\r\nlstAvlMaps=999\r\n", true},
       }) {
    SCOPED_TRACE(it.old);
    FileActionsBench bench;
    bench.Write(u"f.hsf", it.old);
    std::vector<Text> saved;
    bench.Show([&](frmrcBHDGS&) {
      bench.Select({kRoadRage, kOilIsland});
      bench.Save(u"f.hsf");
      saved = bench.Values();
    });
    EXPECT_EQ(bench.Boxes(), Strings{kSaved});
    const bool is_kept = bench.memory.FileExists(InSettings(u"f.hsf.bak"));
    EXPECT_EQ(is_kept ? bench.Read(u"f.hsf.bak") : "(none)", it.set_aside ? it.old : "(none)");
    if (!it.set_aside && std::string(it.old).find("MyNote") != std::string::npos) {
      EXPECT_TRUE(bench.Read(u"f.hsf").starts_with("[Settings]\r\nMyNote=1\r\n"));
      EXPECT_NE(bench.Read(u"f.hsf").find("[Other]\r\nMap7=x\r\n"), std::string::npos);
    }
    bench.Show([&](frmrcBHDGS&) {
      bench.Load(u"f.hsf");
      EXPECT_EQ(bench.Values(), saved);
      EXPECT_EQ(bench.rotation(), (std::vector<SelectedMap>{kRoadRage, kOilIsland}));
    });
    EXPECT_EQ(bench.Boxes(), Strings{});
  }
}

TEST(SettingsFile, SavingTellsWhetherAFileIsThere) {
  FileActionsBench bench;
  bench.Write(u"empty.hsf", "");
  bench.Write(u"old.hsf", "[Settings]\r\nMap9=x\r\n");
  bench.watch.before = [](TextView operation, TextView) { return operation != u"WriteIniKey"; };
  bench.Show([&](frmrcBHDGS&) {
    bench.Save(u"none.hsf");
    bench.Save(u"empty.hsf");
    // What was set aside for nothing comes back before the operator is told.
    bench.toolkit.while_message_open = [&](const auto&) {
      EXPECT_EQ(bench.Read(u"old.hsf"), "[Settings]\r\nMap9=x\r\n");
    };
    bench.Save(u"old.hsf");
  });
  EXPECT_EQ(bench.Boxes(), (Strings{"Failed!|Failed to Save Host Settings!.",
                                    "Failed!|Failed to Write Data to Host Settings File!.",
                                    "Failed!|Failed to Save Host Settings!."}));
  EXPECT_EQ(bench.Failures(), Strings{});
}

TEST(SettingsFile, AFailedSaveReportsItsMapAndKeepsWhatIsWritten) {
  FileActionsBench bench;
  bench.Show([&](frmrcBHDGS&) {
    bench.Select({kRoadRage, kOilIsland, kRoadRage});
    // The view is older than the rotation now, as after a host call from within a box.
    bench.context.maps.selected.Remove({false, false, true});
    bench.Save(u"short.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdSave|5|Invalid procedure call or argument [2]"});
    EXPECT_TRUE(bench.Read(u"short.hsf").ends_with("Map1=7[-]0[-]CTF_04A.BMS\r\n"));

    // The kit's own error 5 is not about a missing map.
    bench.context.dialog->BuildMapList();
    bench.watch.before = [](TextView, TextView key) {
      if (key == u"Map1") throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"Kit");
      return true;
    };
    bench.Save(u"kit.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdSave|5|Kit"});
  });
}

TEST(SettingsFile, AFailedLoadStopsAtItsEntry) {
  struct Case {
    const char* entry;
    const char* failure;
  };
  for (const Case& it : {
           Case{"chkLoop=3", "cmdLoad|380|Invalid property value"},
           Case{"chkLoop=-1", "cmdLoad|380|Invalid property value"},
           Case{"chkLoop=on", "cmdLoad|13|Type mismatch"},
           Case{"lstMax=50", "cmdLoad|380|Invalid property value"},
           Case{"lstMax=-2", "cmdLoad|380|Invalid property value"},
           Case{"lstMax=99999", "cmdLoad|6|Overflow"},
           Case{"lstMax=", "cmdLoad|13|Type mismatch"},
           Case{"lstSelMaps=1", "cmdLoad|380|Invalid property value"},
           Case{"Map1=0[-]0", "cmdLoad|9|Subscript out of range"},
           Case{"Map1", "cmdLoad|9|Subscript out of range"},
           Case{"Map1=0[-]x[-]DMK_01A.BMS", "cmdLoad|13|Type mismatch"},
       }) {
    SCOPED_TRACE(it.entry);
    FileActionsBench bench;
    bench.Write(
        u"bad.hsf",
        "[Settings]\r\ntxtName=before\r\nMap0=0[-]0[-]DMM_01A.BMS\r\nMap5=0[-]0[-]GONE\r\n" +
            std::string(it.entry) + "\r\ntxtPort=1\r\n");
    bench.Show([&](frmrcBHDGS& dialog) {
      bench.Select({kRoadRage});
      bench.Load(u"bad.hsf");
      EXPECT_EQ(bench.Failures(), Strings{it.failure});
      EXPECT_EQ(dialog.pointer(), ui::Pointer::kDefault);
      EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtName").text(), u"before");
      EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtPort").text(), u"17479");
      EXPECT_EQ(bench.RotationFiles(), "DMM_01A.BMS ");
      EXPECT_EQ(dialog.lstSelMaps.Item(0), u"Road Rage <DMK_01A.BMS>");
    });
    EXPECT_EQ(bench.Boxes().size(), 1u);
  }
}

TEST(SettingsFile, HostileFilesDoNoHarm) {
  FileActionsBench bench;
  std::string endless = "[Settings]\r\n";
  for (int i = 0; i < 100'000; ++i) {
    endless += "Map" + std::to_string(i) + "=5[-]1[-]M" + std::to_string(i % 50'000) + ".BMS\r\n";
    endless += "nobody" + std::to_string(i) + "=1\r\n";
  }
  bench.Write(u"endless.hsf", endless);
  bench.Write(u"wide.hsf", "[Settings]\r\ntxtName=" + std::string(4'000'000, 'x') +
                               "\r\nMap0=" + std::string(3'000'000, '[') + "\r\nz=1\r\n");
  bench.Write(u"noise.hsf", "\xFF\xFE[\0S\0e\0\xD8t\r\n\0\0Map0=\0\x80\xFE\r\n=\r\n"sv);
  for (int i = 0; i < 50'000; ++i) {
    const Text number = Decimal(i);
    bench.context.maps.server.AppendEntry(Concat({u"Map ", number, u" <M", number, u".BMS>5"}));
  }
  bench.Show([&](frmrcBHDGS& dialog) {
    bench.Load(u"endless.hsf");
    EXPECT_EQ(bench.rotation().size(), 100'000u);
    bench.Load(u"wide.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdLoad|9|Subscript out of range"});
    bench.Load(u"noise.hsf");

    // One key for every control of the dialog, with a value that fits hardly any.
    for (const auto& control : dialog.controls()) {
      const std::string key = ToUtf8(control->name());
      for (const char* value : {"", "-1", "2", "70000", "\x01", "[-][-]"}) {
        bench.Write(u"any.hsf", "[Settings]\r\n" + key + "=" + value + "\r\nz=1\r\n");
        bench.Load(u"any.hsf");
        EXPECT_EQ(dialog.pointer(), ui::Pointer::kDefault) << key;
      }
    }
    bench.Save(u"still works.hsf");
  });
  EXPECT_EQ(bench.Boxes().back(), kSaved);
}

}  // namespace
}  // namespace quill
