title "A rotation of forty maps in a given order takes at most sixty gestures"

host opens profile 1 target t
host replies
tab "Map Settings"
# Nine of Deathmatch, in the order wanted.
double-click lstAvlMaps 8
double-click lstAvlMaps 2
double-click lstAvlMaps 5
double-click lstAvlMaps 0
double-click lstAvlMaps 7
double-click lstAvlMaps 1
double-click lstAvlMaps 3
double-click lstAvlMaps 4
double-click lstAvlMaps 6
push cmdRight
# Of Team Deathmatch all second halves, and then the first ones.
select lstAvlMaps 1 3 5 7 9 11 13 15
key lstAvlMaps +
select lstAvlMaps 0 2 4 6 8 10 12 14
key lstAvlMaps +
push cmdRight
push cmdRight
# All of the next, of which the two last are to be played first of all.
keys lstAvlMaps Ctrl+A
key lstAvlMaps +
# One too many was added at the end by mistake: taken back.
double-click lstAvlMaps 0
keys lstAvlMaps Ctrl+Z
expect lstSelMaps count = 41
select lstSelMaps 39 40
keys lstSelMaps Alt+Home
# One goes, and one comes five places earlier.
type lstSelMaps dev
keys lstSelMaps Del
select lstSelMaps 12
repeat 5 times
  keys lstSelMaps Alt+Up
end
expect at most 60 gestures
expect lstSelMaps rows
| Tunnel Trouble A <TKHP_01A.BMS>
| Tunnel Trouble B <TKHP_01B.BMS>
| Squirrels Nest <DMP_01A.BMS>
| Cracked <DMM_01E.BMS>
| Stadium Riot <DMM_01K.BMS>
| Road Rage <DMK_01A.BMS>
| City Madness <DMM_01A.BMS>
| Panic Attack B <TDMM_01F.BMS>
| Walled In <DMM_01G.BMS>
| Mines Eye <DMM_01H.BMS>
| Desert Funeral <DMM_02A.BMS>
| Culture Clash B <TDMK_01B.BMS>
| Mean Streets B <TDMM_01B.BMS>
| Rampage B <TDMM_01H.BMS>
| Double Barrel B <TDMM_01L.BMS>
| Hornets Nest B <TDMM_02B.BMS>
| Sidewinder B <TDMM_03B.BMS>
| Clue Map B <TDMP_01B.BMS>
| Culture Clash A <TDMK_01A.BMS>
| Mean Streets A <TDMM_01A.BMS>
| Panic Attack A <TDMM_01E.BMS>
| Rampage A <TDMM_01G.BMS>
| Double Barrel A <TDMM_01K.BMS>
| Hornets Nest A <TDMM_02A.BMS>
| Sidewinder A <TDMM_03A.BMS>
| Clue Map A <TDMP_01A.BMS>
| Meat Grinder A <TKHK_01A.BMS>
| Meat Grinder B <TKHK_01B.BMS>
| House of Pain A <TKHM_01A.BMS>
| House of Pain B <TKHM_01B.BMS>
| Eye of the Dead A <TKHM_01E.BMS>
| Eye of the Dead B <TKHM_01F.BMS>
| Dust Devil A <TKHM_01G.BMS>
| Dust Devil B <TKHM_01H.BMS>
| Spider Web A <TKHM_01K.BMS>
| Spider Web B <TKHM_01L.BMS>
| Desert Insertion A <TKHM_02A.BMS>
| Desert Insertion B <TKHM_02B.BMS>
| Desert Fox A <TKHM_03A.BMS>
| Desert Fox B <TKHM_03B.BMS>
push cmdCancel
