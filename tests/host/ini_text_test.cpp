// INI texts keep what they are not asked to change and cannot be made to say more than was written.
#include "host/kit/ini_text.h"

#include <gtest/gtest.h>

#include <array>

#include "support/runtime_error.h"

namespace quill::host {
namespace {

using Entries = std::vector<Text>;

TEST(IniText, ReadsTheEntriesOfASectionInOrder) {
  const Text text =
      u"stray=1\r\n; note\r\n[Other]\r\na=0\r\n\r\n[ SETTINGS ] ; of today\r\n"
      u"txtMessage= \r\n  txtName \t=  two  words \r\n#b=2\r\n   \r\n; c=3\r\nlonely\r\n"
      u"txtName=a=b;c\r\n[open\r\n[Settings2]\r\nd=4\r\n[settings]\r\ne=5";
  EXPECT_EQ(IniSection(text, u"Settings"), (Entries{u"txtMessage= ", u"txtName=  two  words ",
                                                    u"lonely", u"txtName=a=b;c", u"[open"}));
  EXPECT_EQ(IniSection(text, u"settings2"), (Entries{u"d=4"}));
  EXPECT_EQ(IniSection(text, u"Missing"), std::nullopt);
  EXPECT_EQ(IniSection(u"[Empty]", u"empty"), Entries());
  EXPECT_EQ(IniSection(u"", u"Settings"), std::nullopt);
}

TEST(IniText, EveryLineEndCounts) {
  EXPECT_EQ(IniSection(u"[s]\na=1\rb=2\r\nc=3\n\rd=4", u"s"),
            (Entries{u"a=1", u"b=2", u"c=3", u"d=4"}));
  EXPECT_EQ(IniSection(Text(u"[s]\r\na=x\0y\r\n\0b=1", 16), u"s"),
            (Entries{Text(u"a=x\0y", 5), Text(u"\0b=1", 4)}));
}

TEST(IniText, SplitsAtTheFirstEqualsSign) {
  for (const auto& [line, key, value] :
       {std::array{u"a=b=c", u"a", u"b=c"}, {u"lonely", u"lonely", u""}, {u"=v", u"", u"v"}}) {
    EXPECT_EQ(SplitIniEntry(line).key, key);
    EXPECT_EQ(SplitIniEntry(line).value, value);
  }
}

TEST(IniText, ChangesOneEntryAndNothingElse) {
  const Text before =
      u"; mine\n\n[Window]\nleft = 3\n\n[Settings]\n; the name\n  TxtName = old\nx\n"
      u"txtname=older\n\n\n[Last]\nz=1";
  EXPECT_EQ(WithIniEntry(before, u"settings", u"txtName", u" "),
            u"; mine\n\n[Window]\nleft = 3\n\n[Settings]\n; the name\ntxtName= \nx\n"
            u"\n\n[Last]\nz=1");
  EXPECT_EQ(WithIniEntry(before, u"Settings", u"lstMax", u"15"),
            u"; mine\n\n[Window]\nleft = 3\n\n[Settings]\n; the name\n  TxtName = old\nx\n"
            u"txtname=older\nlstMax=15\n\n\n[Last]\nz=1");
  EXPECT_EQ(WithIniEntry(before, u"Last", u"y", u"2"), before + u"\ny=2\n");
  EXPECT_EQ(WithIniEntry(before, u"New", u"y", u"2"), before + u"\n\n[New]\ny=2\n");
  EXPECT_EQ(WithIniEntry(before, u"Last", u"Z", u"9").substr(before.size() - 11), u"\n[Last]\nZ=9");
}

TEST(IniText, BeginsATextAndASection) {
  Text text = WithIniEntry(u"", u"Settings", u"txtName", u"Untitled");
  EXPECT_EQ(text, u"[Settings]\r\ntxtName=Untitled\r\n");
  text = WithIniEntry(text, u"Settings", u"Map0", u"0[-]0[-]DMK_01A.BMS");
  EXPECT_EQ(text, u"[Settings]\r\ntxtName=Untitled\r\nMap0=0[-]0[-]DMK_01A.BMS\r\n");
  EXPECT_EQ(WithIniEntry(u"[Settings]\r\n\r\n[b]\r\n", u"Settings", u"k", u""),
            u"[Settings]\r\nk=\r\n\r\n[b]\r\n");
  // A second section of the name is not read, so it is not written to either.
  EXPECT_EQ(WithIniEntry(u"[s]\r\n[s]\r\nk=1\r\n", u"s", u"k", u"2"),
            u"[s]\r\nk=2\r\n[s]\r\nk=1\r\n");
}

TEST(IniText, RefusesWhatCouldNotBeReadBack) {
  std::vector<std::array<TextView, 3>> cases;
  for (const TextView value : {u"v\r\ncboMods=evil", u"v\n", u"\rv"}) {
    cases.push_back({u"s", u"k", value});
  }
  for (const TextView key : {u"", u" ", u"a=b", u"a\nb", u";a", u"#a", u"[a", u" a", u"a\t"}) {
    cases.push_back({u"s", key, u"v"});
  }
  for (const TextView section : {u"", u" \t", u"a]b", u"a\r"})
    cases.push_back({section, u"k", u"v"});
  for (const auto& [section, key, value] : cases) {
    EXPECT_THROW((void)WithIniEntry(u"", section, key, value), RuntimeError)
        << ToUtf8(Concat({section, u"|", key, u"|", value}));
  }
}

TEST(IniText, WhateverIsWrittenIsReadBack) {
  for (const TextView value : {u"", u" ", u"  a ", u"[x]", u"; no comment", u"a=b", u"\"q\"", u"\t",
                               u"\xFEFF", u"\u2028", u"\u0085"}) {
    const Text text = WithIniEntry(u"[s]\nother=1", u"S", u"k", value);
    EXPECT_EQ(IniSection(text, u"s"), (Entries{u"other=1", Concat({u"k=", value})}));
  }
}

}  // namespace
}  // namespace quill::host
