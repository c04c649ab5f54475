// Settings files: what saving writes, what loading makes of any file, and what holds afterwards.
#include <gtest/gtest.h>

#include <chrono>

#include "tests/dialog/file_actions_bench.h"

namespace quill {
namespace {

using namespace std::string_view_literals;
using Strings = std::vector<std::string>;

const SelectedMap kRoadRage{u"Road Rage", u"DMK_01A.BMS", 0, false};
const SelectedMap kOilIsland{u"Oil Island A", u"CTF_04A.BMS", 7, false};
const SelectedMap kHarbour{u"Harbour", u"HARBOUR.BMS", 8, true};
constexpr const char* kSaved = "Success|Host Settings Saved Successfully.";

RuntimeError Failure() {
  return RuntimeError(1004, u"The kit has had enough");
}

TEST(SettingsFile, HoldsTheOptionsInOrderAndThenTheMaps) {
  FileActionsBench bench;
  bench.context.maps.server.AppendEntry(u"Harbour <HARBOUR.BMS>8");
  bench.Show([&](frmrcBHDGS& dialog) {
    bench.Select({kRoadRage, kHarbour, kRoadRage});
    bench.person.SelectAllAndType(u"txtCountry", u"DE");
    bench.person.ScrollTo(u"lstMax", 3);
    bench.Save(u"mine.hsf");

    EXPECT_EQ(bench.Boxes(), Strings{kSaved});
    EXPECT_EQ(bench.Read(u"mine.hsf"),
              "[Settings]\r\ntxtMessage= \r\ntxtName=Untitled\r\ntxtCountry=DE\r\ntxtPassword= \r\n"
              "lstSession=-1\r\nlstMax=3\r\nlstDelay=-1\r\nchkLoop=0\r\nlstKills=-1\r\n"
              "lstScore=-1\r\nlstZone=-1\r\nlstRespawn=-1\r\nlstTime=-1\r\nchkNova=0\r\n"
              "chkSkins=0\r\nchkWindow=1\r\nchkDedi=0\r\ncboMods=Team Sabre\r\ntxtBlue= \r\n"
              "txtRed= \r\nchkFFKills=0\r\nchkFFTags=1\r\nchkFFWarn=0\r\nchkTeam=0\r\n"
              "chkTracers=0\r\nchkClays=0\r\nchkAutoRange=0\r\nchkMinPing=0\r\ntxtMinPing=0\r\n"
              "chkMaxPing=0\r\ntxtMaxPing=1500\r\ntxtPort=17479\r\nMap0=0[-]0[-]DMK_01A.BMS\r\n"
              "Map1=8[-]1[-]HARBOUR.BMS\r\nMap2=0[-]0[-]DMK_01A.BMS\r\n");
    EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtName").text(), u"Untitled");
    EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtMessage").text(), u" ");

    ASSERT_EQ(bench.toolkit.file_dialogs().size(), 1u);
    const ui::FileDialogRequest& asked = bench.toolkit.file_dialogs()[0];
    EXPECT_TRUE(asked.save);
    EXPECT_EQ(asked.title, u"Save Host Settings");
    EXPECT_EQ(asked.initial_folder, kSettings);
    EXPECT_EQ(asked.filter, u"Host Settings File (*.hsf)|*.hsf");
    EXPECT_EQ(asked.filter_index, 1);
    EXPECT_EQ(asked.file_name, u"");
    EXPECT_EQ(asked.flags, 788996u);
    EXPECT_FALSE(bench.memory.FileExists(InSettings(u"mine.hsf.bak")));
  });
}

TEST(SettingsFile, ComesBackAsItWasSaved) {
  FileActionsBench bench;
  bench.context.maps.server.AppendEntry(u"Harbour <HARBOUR.BMS>8");
  std::vector<Text> saved;
  std::vector<SelectedMap> rotation;
  bench.Show([&](frmrcBHDGS& dialog) {
    for (const Option& option : Options()) {
      if (auto* list = dynamic_cast<ui::ListBox*>(&dialog.At(option.key))) {
        list->SetListIndex(list->Count() - 1);
      } else if (auto* check = dynamic_cast<ui::CheckBox*>(&dialog.At(option.key))) {
        check->SetValue(1 - check->value());
      }
    }
    dialog.Get<ui::TextBox>(u"txtName").SetText(u"=A; b = \u00E4 [x]. and longer than the limit");
    // The expansion's map is found again only because its mod comes before it.
    for (int i = 0; i < 130; ++i) bench.Select({kRoadRage, kOilIsland, kHarbour});
    bench.Save(u"all.hsf");
    saved = bench.Values();
    rotation = bench.rotation();
  });
  bench.Show([&](frmrcBHDGS& dialog) {
    dialog.Get<ui::ComboBox>(u"cboMods").SetListIndex(0);
    bench.Load(u"all.hsf");
    EXPECT_EQ(bench.Values(), saved);
    EXPECT_EQ(bench.rotation(), rotation);
    EXPECT_EQ(dialog.lstSelMaps.Count(), 390);
    EXPECT_EQ(dialog.lblMapCnt.caption(), u"Number of Maps: 390");
    EXPECT_EQ(dialog.pointer(), ui::Pointer::kDefault);
    EXPECT_EQ(dialog.txtGametype.text(), u"Deathmatch");
    const ui::FileDialogRequest& asked = bench.toolkit.file_dialogs().back();
    EXPECT_FALSE(asked.save);
    EXPECT_EQ(asked.title, u"Load Saved Host Settings");
    EXPECT_EQ(asked.flags, 788996u);
  });
  EXPECT_EQ(bench.Failures(), Strings{});
  EXPECT_EQ(bench.Boxes(), Strings{kSaved});
}

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
           Case{"[Settings]\r\nmaple=a\r\nmap=b\r\ncboMods=None\r\n", false},
           Case{"[Settings]\r\ntxtName=a\r\ntxtName=b\r\n", true},
           Case{"[Settings]\r\nlstMax.ListIndex=9\r\n", true},
       }) {
    SCOPED_TRACE(it.old);
    FileActionsBench bench;
    bench.Write(u"f.hsf", it.old);
    bench.Write(u"f.hsf.bak", "older still");
    std::vector<Text> saved;
    bench.Show([&](frmrcBHDGS&) {
      bench.Select({kRoadRage, kOilIsland});
      bench.Save(u"f.hsf");
      saved = bench.Values();
    });
    EXPECT_EQ(bench.Boxes(), Strings{kSaved});
    EXPECT_EQ(bench.Read(u"f.hsf.bak"), it.set_aside ? it.old : "older still");
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

TEST(SettingsFile, NothingIsWrittenWhenTheOldFileCannotBeSetAside) {
  FileActionsBench bench;
  bench.Write(u"f.hsf", "[Settings]\r\nMap5=x\r\n");
  bench.files.before = [](TextView operation, TextView) {
    if (operation == u"RenameFile") throw RuntimeError(ErrorNumber::kPermissionDenied);
  };
  bench.Show([&](frmrcBHDGS& dialog) {
    bench.Save(u"f.hsf");
    EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtName").text(), u"");
  });
  EXPECT_EQ(bench.Failures(), Strings{"cmdSave|70|Permission denied"});
  EXPECT_EQ(bench.Read(u"f.hsf"), "[Settings]\r\nMap5=x\r\n");
  EXPECT_FALSE(bench.memory.FileExists(InSettings(u"f.hsf.bak")));
}

TEST(SettingsFile, SavingTellsWhetherAFileIsThere) {
  FileActionsBench bench;
  bench.Write(u"empty.hsf", "");
  bench.kit.before = [](TextView operation, TextView) { return operation != u"WriteIniKey"; };
  bench.Show([&](frmrcBHDGS&) {
    bench.Save(u"none.hsf");
    bench.Save(u"empty.hsf");
  });
  EXPECT_EQ(bench.Boxes(), (Strings{"Failed!|Failed to Save Host Settings!.",
                                    "Failed!|Failed to Write Data to Host Settings File!."}));
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
    bench.kit.before = [](TextView, TextView key) {
      if (key == u"Map1") throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"Kit");
      return true;
    };
    bench.Save(u"kit.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdSave|5|Kit"});
    bench.kit.before = [](TextView, TextView key) -> bool {
      if (key == u"txtCountry") throw Failure();
      return true;
    };
    bench.Save(u"kit2.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdSave|1004|The kit has had enough"});
    EXPECT_EQ(bench.Read(u"kit2.hsf"), "[Settings]\r\ntxtMessage= \r\ntxtName=Untitled\r\n");
  });
  const Strings boxes = bench.Boxes();
  ASSERT_EQ(boxes.size(), 3u);
  for (const std::string& box : boxes) EXPECT_TRUE(box.starts_with("DLL Error!|Error Line: "));
}

TEST(SettingsFile, ReportsTheLineOfTheFailingStep) {
  FileActionsBench bench;
  std::int32_t folder_line = 0;
  bench.Show([&](frmrcBHDGS&) {
    bench.files.before = [](TextView operation, TextView) {
      if (operation == u"MakeFolder") throw RuntimeError(ErrorNumber::kPathNotFound);
    };
    bench.Save(u"a.hsf");
    ASSERT_EQ(bench.kit.failures.size(), 1u);
    folder_line = bench.kit.failures[0].line;
    EXPECT_EQ(bench.toolkit.file_dialogs().size(), 0u);
    bench.files.before = nullptr;
    bench.kit.before = [](TextView, TextView) -> bool { throw Failure(); };
    bench.Save(u"a.hsf");
    ASSERT_EQ(bench.kit.failures.size(), 2u);
    EXPECT_GT(bench.kit.failures[1].line, folder_line);
  });
}

TEST(SettingsFile, FoldersAreMadeInOrderAndACancelledQuestionChangesNothing) {
  FileActionsBench bench;
  std::vector<Text> made;
  bench.files.before = [&](TextView operation, TextView path) {
    if (operation == u"MakeFolder") made.emplace_back(path);
  };
  bench.Show([&](frmrcBHDGS&) {
    bench.Select({kRoadRage});
    for (const TextView button : {u"cmdSave", u"cmdLoad", u"cmdSaveImg", u"cmdLoadImg"}) {
      bench.Use(button, {}, ui::kRightButton);
    }
    EXPECT_EQ(bench.toolkit.file_dialogs().size(), 4u);
    EXPECT_EQ(bench.rotation().size(), 1u);
    // Of several files the first counts.
    bench.Use(u"cmdSave", {InSettings(u"one.hsf"), InSettings(u"two.hsf")}, ui::kMiddleButton);
  });
  EXPECT_EQ(made, (std::vector<Text>{u"C:\\Host\\profiles", u"C:\\Host\\profiles\\3",
                                     u"C:\\Host\\profiles\\3\\settings"}));
  EXPECT_EQ(bench.Boxes(), Strings{kSaved});
  EXPECT_TRUE(bench.memory.FileExists(InSettings(u"one.hsf")));
  EXPECT_FALSE(bench.memory.FileExists(InSettings(u"two.hsf")));
}

TEST(SettingsFile, LoadingSetsWhateverControlAKeyNames) {
  FileActionsBench bench;
  bench.Write(u"odd.hsf",
              "[Settings]\r\nlstMax.ListIndex=7\r\nTXTNAME=Caps\r\nunknown=1\r\n=\r\nnothing\r\n"
              ".x=1\r\nchkLoop=2\r\ncboMods=Not there\r\ntxtGametype=Flagball\r\n"
              "lblMapCnt=99\r\ncmdStart=5\r\nlstDelay= 1.5 \r\nlstKills=-1\r\ntxtPort=\r\n"
              "map0=0[-]0[-]DMK_01A.BMS\r\n");
  bench.Show([&](frmrcBHDGS& dialog) {
    dialog.Get<ui::ListBox>(u"lstKills").SetListIndex(4);
    bench.Load(u"odd.hsf");
    EXPECT_EQ(bench.Failures(), Strings{});
    EXPECT_EQ(dialog.Get<ui::ListBox>(u"lstMax").ListIndex(), 7);
    EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtName").text(), u"Caps");
    EXPECT_EQ(dialog.Get<ui::CheckBox>(u"chkLoop").value(), 2);
    EXPECT_EQ(dialog.Get<ui::ComboBox>(u"cboMods").text(), u"Team Sabre");
    EXPECT_EQ(dialog.txtGametype.text(), u"Flagball");
    EXPECT_EQ(dialog.lblMapCnt.caption(), u"Number of Maps: 0");
    EXPECT_EQ(dialog.Get<ui::ListBox>(u"lstDelay").ListIndex(), 2);
    EXPECT_EQ(dialog.Get<ui::ListBox>(u"lstKills").ListIndex(), -1);
    EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtPort").text(), u"");
    EXPECT_EQ(dialog.Get<ui::TextBox>(u"txtMaxPing").text(), u"1500");
    EXPECT_TRUE(bench.rotation().empty());
  });
  EXPECT_EQ(bench.Boxes(), Strings{});
}

TEST(SettingsFile, MapsThatNobodyKnowsAreNamedOnceInOneBox) {
  FileActionsBench bench;
  bench.context.maps.server.AppendEntry(u"Harbour <HARBOUR.BMS>8");
  bench.Write(u"maps.hsf",
              "[Settings]\r\nMap0=0[-]0[-]DMK_01A.BMS\r\nMap1=1[-]0[-]DMK_01A.BMS\r\n"
              "Map9=8[-]7[-] HARBOUR.BMS \r\nMap=0[-]false[-]x[-] DMK_01A.BMS \r\n"
              "Mapping=0[-]0[-]DMM_01A.BMS[-]x[-]y\r\nMap3=8[-]0[-]HARBOUR.BMS\r\n"
              "Map4=0[-]TRUE[-]DMK_01A.BMS\r\n");
  bench.Show([&](frmrcBHDGS& dialog) {
    bench.Load(u"maps.hsf");
    EXPECT_EQ(bench.RotationFiles(), "DMK_01A.BMS HARBOUR.BMS DMK_01A.BMS DMM_01A.BMS ");
    EXPECT_EQ(bench.rotation()[1], kHarbour);
    EXPECT_EQ(dialog.lstSelMaps.Item(0), u"Road Rage <DMK_01A.BMS>");
    EXPECT_EQ(dialog.lstSelMaps.Count(), 4);
  });
  EXPECT_EQ(bench.Boxes(),
            Strings{"kvrrcBHDGS|The following map files do not appear to exist: \r\n\r\n"
                    "DMK_01A.BMS\r\nHARBOUR.BMS\r\nDMK_01A.BMS\r\n"});
}

TEST(SettingsFile, TooLittleOfASectionOnlyEmptiesTheRotation) {
  for (const char* bytes : {"", "[Other]\r\ntxtName=a\r\ntxtPort=1\r\n", "[Settings]\r\n",
                            "[Settings]\r\ntxtName=one entry is no settings\r\n"}) {
    FileActionsBench bench;
    bench.Write(u"little.hsf", bytes);
    bench.Show([&](frmrcBHDGS& dialog) {
      bench.Select({kRoadRage});
      const std::vector<Text> before = bench.Values();
      bench.Load(u"little.hsf");
      EXPECT_EQ(bench.Values(), before) << bytes;
      EXPECT_TRUE(bench.rotation().empty());
      EXPECT_EQ(dialog.lstSelMaps.Count(), 0);
      bench.Select({kRoadRage});
      bench.Load(u"missing.hsf");
      EXPECT_TRUE(bench.rotation().empty());
    });
    EXPECT_EQ(bench.Boxes(), Strings{});
  }
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

// After a load that failed half-way the view shows one rotation and the list holds another.
TEST(SettingsFile, NoActionLosesAMapThatTheViewDoesNotShow) {
  FileActionsBench bench;
  bench.Write(
      u"bad.hsf",
      "[Settings]\r\nMap0=0[-]0[-]DMM_01A.BMS\r\nMap1=0[-]0[-]DMK_01A.BMS\r\nchkLoop=x\r\n");
  const auto with_stale_view = [&](const std::function<void(frmrcBHDGS&)>& act) {
    bench.Show([&](frmrcBHDGS& dialog) {
      bench.Select({kRoadRage, kRoadRage, kOilIsland});
      bench.Load(u"bad.hsf");
      (void)bench.Failures();
      bench.person.ClickTab(u"Map Settings");
      act(dialog);
    });
  };
  with_stale_view([&](frmrcBHDGS& dialog) {
    bench.person.DoubleClickRow(u"lstSelMaps", 0);
    EXPECT_EQ(bench.RotationFiles(), "DMM_01A.BMS DMK_01A.BMS ");
    EXPECT_EQ(dialog.lstSelMaps.Count(), 2);  // and shown now
  });
  with_stale_view([&](frmrcBHDGS&) {
    // The second row happens to show what the list holds there; the others go by nobody's wish.
    bench.person.SelectRows(u"lstSelMaps", {0, 1, 2});
    bench.person.Key(u"lstSelMaps", u'-');
    EXPECT_EQ(bench.RotationFiles(), "DMM_01A.BMS ");
  });
  with_stale_view([&](frmrcBHDGS&) {
    bench.Save(u"stale.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdSave|5|Invalid procedure call or argument [2]"});
  });
  with_stale_view([&](frmrcBHDGS& dialog) {
    bench.person.Click(u"cmdRandomize");
    EXPECT_EQ(bench.rotation().size(), 2u);
    EXPECT_EQ(dialog.lstSelMaps.Count(), 2);
  });
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
    const auto begun = std::chrono::steady_clock::now();
    bench.Load(u"endless.hsf");
    EXPECT_EQ(bench.rotation().size(), 100'000u);
    bench.Load(u"wide.hsf");
    EXPECT_EQ(bench.Failures(), Strings{"cmdLoad|9|Subscript out of range"});
    bench.Load(u"noise.hsf");
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(90));

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

TEST(SettingsFile, ADialogThatIsClosedMeanwhileLeavesTheRotationAlone) {
  FileActionsBench bench;
  bench.Write(u"f.hsf", "[Settings]\r\nMap0=0[-]0[-]DMM_01A.BMS\r\nz=1\r\n");
  bench.Show([&](frmrcBHDGS& dialog) {
    bench.Select({kRoadRage});
    bench.toolkit.while_file_dialog_open = [&](const auto&) { dialog.Unload(); };
    bench.toolkit.AnswerNextFileDialog({InSettings(u"f.hsf")});
    bench.person.Release(u"cmdLoad", ui::kRightButton);
    EXPECT_EQ(bench.RotationFiles(), "DMK_01A.BMS ");
  });
  EXPECT_EQ(bench.Boxes(), Strings{});
}

}  // namespace
}  // namespace quill
