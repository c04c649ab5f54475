// Settings files: what saving sets aside and reports, and where a failing load stops.
#include <gtest/gtest.h>

#include "tests/doubles/plug_in_bench.h"

namespace quill {
namespace {

using Strings = PlugInBench::Strings;

const SelectedMap kRoadRage{u"Road Rage", u"DMK_01A.BMS", 0, false};
const SelectedMap kOilIsland{u"Oil Island A", u"CTF_04A.BMS", 7, false};
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
    PlugInBench bench;
    bench.Write(u"f.hsf", it.old);
    Strings saved;
    bench.OpenFilled([&](frmrcBHDGS&) {
      bench.person.Choose(u"cboMods", u"Team Sabre");
      bench.Select({kRoadRage, kOilIsland});
      bench.Push(u"cmdSave", u"f.hsf");
      saved = bench.Values();
    });
    EXPECT_EQ(bench.Boxes(), Strings{kSaved});
    EXPECT_EQ(bench.Read(u"f.hsf.bak"), it.set_aside ? it.old : "(none)");
    if (std::string_view(it.old).find("MyNote") != std::string_view::npos) {
      EXPECT_TRUE(bench.Read(u"f.hsf").starts_with("[Settings]\r\nMyNote=1\r\n"));
      EXPECT_NE(bench.Read(u"f.hsf").find("[Other]\r\nMap7=x\r\n"), std::string::npos);
    }
    bench.OpenFilled([&](frmrcBHDGS&) {
      bench.Push(u"cmdLoad", u"f.hsf");
      EXPECT_EQ(bench.Values(), saved);
      EXPECT_EQ(bench.rotation(), (std::vector<SelectedMap>{kRoadRage, kOilIsland}));
    });
    EXPECT_EQ(bench.Boxes(), Strings{});
  }
}

TEST(SettingsFile, SavingTellsWhetherAFileIsThere) {
  PlugInBench bench;
  bench.Write(u"empty.hsf", "");
  bench.Write(u"old.hsf", "[Settings]\r\nMap9=x\r\n");
  bench.watch.before = [](TextView operation, TextView) { return operation != u"WriteIniKey"; };
  bench.OpenFilled([&](frmrcBHDGS&) {
    bench.Push(u"cmdSave", u"none.hsf");
    // No read-only box, several files, an existing path, short names, the present look.
    EXPECT_EQ(bench.toolkit.TakeFileDialogs().at(0).flags, 0x000C0A04u);
    bench.Push(u"cmdSave", u"empty.hsf");
    // What was set aside for nothing comes back before the operator is told.
    bench.toolkit.while_message_open = [&](const auto&) {
      EXPECT_EQ(bench.Read(u"old.hsf"), "[Settings]\r\nMap9=x\r\n");
    };
    bench.Push(u"cmdSave", u"old.hsf");
  });
  EXPECT_EQ(bench.Boxes(), (Strings{"Failed!|Failed to Save Host Settings!.",
                                    "Failed!|Failed to Write Data to Host Settings File!.",
                                    "Failed!|Failed to Save Host Settings!."}));
  EXPECT_EQ(bench.Failures(), Strings{});
}

TEST(SettingsFile, AFailedSaveReportsItsMapAndKeepsWhatIsWritten) {
  PlugInBench bench;
  bench.OpenFilled([&](frmrcBHDGS& dialog) {
    bench.Select({kRoadRage, kOilIsland, kRoadRage});
    // The view is older than the rotation now, as after a host call from within a box.
    bench.module.maps.selected.Reorder({0, 1});
    bench.Push(u"cmdSave", u"short.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdSave|5|Invalid procedure call or argument [2]"});
    EXPECT_TRUE(bench.Read(u"short.hsf").ends_with("Map1=7[-]0[-]CTF_04A.BMS\r\n"));

    // What a kit leaves that fails at the first key is not worth the former file.
    dialog.BuildMapList();
    bench.Write(u"old.hsf", "[Settings]\r\nMap9=x\r\n");
    bench.watch.before = [&](TextView operation, TextView) {
      if (operation != u"WriteIniKey") return true;
      bench.Write(u"old.hsf", "half");
      throw RuntimeError(ErrorNumber::kDeviceIoError);
    };
    bench.Push(u"cmdSave", u"old.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdSave|57|Device I/O error"});
    EXPECT_EQ(bench.Read(u"old.hsf"), "[Settings]\r\nMap9=x\r\n");

    // The kit's own error 5 is not about a missing map.
    bench.watch.before = [](TextView, TextView key) {
      if (key == u"Map1") throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"Kit");
      return true;
    };
    bench.Push(u"cmdSave", u"kit.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdSave|5|Kit"});
  });
}

TEST(SettingsFile, AFailedLoadStopsAtItsEntry) {
  const std::pair<const char*, const char*> cases[] = {
      {"chkLoop=3", "cmdLoad|380|Invalid property value"},
      {"chkLoop=-1", "cmdLoad|380|Invalid property value"},
      {"chkLoop=on", "cmdLoad|13|Type mismatch"},
      {"lstMax=-2", "cmdLoad|380|Invalid property value"},
      {"lstMax=99999", "cmdLoad|6|Overflow"},
      {"lstMax=", "cmdLoad|13|Type mismatch"},
      {"lstSelMaps=1", "cmdLoad|380|Invalid property value"},
      {"Map1=0[-]0", "cmdLoad|9|Subscript out of range"},
      {"Map1", "cmdLoad|9|Subscript out of range"},
      {"Map1=0[-]x[-]DMK_01A.BMS", "cmdLoad|13|Type mismatch"},
  };
  for (const auto& [entry, failure] : cases) {
    SCOPED_TRACE(entry);
    PlugInBench bench;
    bench.Write(u"bad.hsf", std::string("[Settings]\r\ntxtName=before\r\nMap0=0[-]0[-]DMM_01A.BMS"
                                        "\r\nMap5=0[-]0[-]GONE\r\n") +
                                entry + "\r\ntxtPort=1\r\n");
    bench.OpenFilled([&, failure = failure](frmrcBHDGS& dialog) {
      bench.Select({kRoadRage});
      bench.Push(u"cmdLoad", u"bad.hsf");
      EXPECT_EQ(bench.Failures(), Strings{failure});
      EXPECT_EQ(bench.Boxes().size(), 1u) << "not of the missing map";
      EXPECT_EQ(bench.Value(u"txtName") + bench.Value(u"txtPort"), "before17479");
      EXPECT_EQ(bench.RotationFiles(), "DMM_01A.BMS ");
      EXPECT_EQ(dialog.lstSelMaps.Item(0), u"Road Rage <DMK_01A.BMS>");
    });
  }
}

}  // namespace
}  // namespace quill
