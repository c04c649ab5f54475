title "The shuffle moves whole maps and loses none"

host opens profile 1 target t
reply map Deathmatch "Own One" XDM.BMS
host replies
tab "Map Settings"

# Nothing to shuffle: nothing changes, not even the tooltip.
click cmdRandomize
expect lstSelMaps tooltip = ""
double-click lstAvlMaps 9
select lstSelMaps 0
expect lstSelMaps tooltip = Deathmatch
click cmdRandomize
expect lstSelMaps tooltip = Deathmatch
expect lstSelMaps selected = 0

select lstAvlMaps 0-3
key lstAvlMaps +
push cmdLeft
double-click lstAvlMaps 0
clock 12345
click cmdRandomize
expect lstSelMaps rows in any order
| Own One <XDM.BMS>
| Road Rage <DMK_01A.BMS>
| City Madness <DMM_01A.BMS>
| Cracked <DMM_01E.BMS>
| Walled In <DMM_01G.BMS>
| Scrimmage Line A <FBK_01A.BMS>
expect lstSelMaps selected = ""
expect lstSelMaps tooltip = "Maps: 6 / 118"
expect lblMapCnt caption = "Number of Maps: 6"

# The flag goes with its map.
push cmdStart
expect payload maps = 6
expect payload contains "-T3duIE9uZQ==_WERNLkJNUw==_0_True"
expect payload contains "-U2NyaW1tYWdlIExpbmUgQQ==_RkJLXzAxQS5CTVM=_8_False"
repeat 20 times
  click cmdRandomize
end
expect lstSelMaps count = 6
host replies with 1
