# Reads the reasons file and then an lcov tracefile: prints figures per folder of the core, what is
# not covered and has no reason, and reasons that nothing needs any more. Exit code 1 where there is
# either.
#
# A reason is a line "path: code: why" with the code as it stands in the source, without the blanks
# around it. It covers each line of that file with that code, and the branches on it. Where the code
# ends in "{...}" it covers the whole block that such a line begins; where it ends in "*", each line
# that begins so; the path "*" stands for every file.

# Reads a source: each line, and the lines that begin the blocks around it.
function load(path,    line, at, depth, i) {
  loaded[path] = 1
  while ((getline line < (root "/" path)) > 0) {
    gsub(/^[ \t]+|[ \t]+$/, "", line)
    code[path, ++at] = line
    if (line ~ /^}/ && depth > 0) --depth
    if (line ~ /{$/) opener[++depth] = line
    for (i = 1; i <= depth; ++i) around[path, at, i] = opener[i]
    depths[path, at] = depth
  }
  close(root "/" path)
}

function begins(text, start) { return substr(text, 1, length(start)) == start }

# Whether the reason, without its path, is for that line.
function is_for(reason, number,    mark, start, i) {
  if (begins(reason, code[path, number] ": ")) return 1
  mark = index(reason, "{...}: ")
  if (mark > 0) {
    start = substr(reason, 1, mark)
    for (i = 1; i <= depths[path, number]; ++i) if (around[path, number, i] == start) return 1
    return 0
  }
  mark = index(reason, "*: ")
  return mark > 0 && begins(code[path, number], substr(reason, 1, mark - 1))
}

function missed(kind, number,    reason, colon, file) {
  if (!(path in loaded)) load(path)
  for (reason in why) {
    colon = index(reason, ": ")
    file = substr(reason, 1, colon - 1)
    if (file != "*" && file != path) continue
    if (is_for(substr(reason, colon + 2), number)) {
      used[reason] = 1
      reasoned[folder, kind]++
      return
    }
  }
  if (!((path, number, kind) in told)) {
    told[path, number, kind] = 1
    print path ":" number ": " kind " not covered: " code[path, number]
  }
  uncovered++
}

FILENAME == reasons {
  if ($0 !~ /^#/ && $0 !~ /^[ \t]*$/) why[$0] = 1
  next
}
/^SF:/ {
  path = substr($0, 4)
  sub("^" root "/", "", path)
  sub("^build/coverage/", "", path)  # where the compiler ran, for sources that it was told from there
  is_core = path ~ /^src\/(support|ui|maps|dialog|remote|plugin)\//
  folder = path
  sub(/\/[^\/]*$/, "", folder)
  next
}
!is_core { next }
/^DA:/ {
  split(substr($0, 4), field, ",")
  lines[folder]++
  dead[path, field[1]] = field[2] == 0
  if (field[2] == 0) missed("line", field[1]); else hit[folder]++
}
/^BRDA:/ {
  split(substr($0, 6), field, ",")
  # In a header all instances of a template count together.
  number = path ~ /\.h$/ ? field[3] % 2 : field[3]
  if (!((path, field[1], number) in times)) waiting[++held] = field[1] "," number
  times[path, field[1], number] += field[4]  # "-" is 0
}
/^end_of_record/ {
  for (i = 1; i <= held; ++i) {
    split(waiting[i], field, ",")
    branches[folder]++
    if (times[path, field[1], field[2]] > 0) taken[folder]++
    else if (!dead[path, field[1]]) missed("branch", field[1])  # else the line has been told
  }
  held = 0
}
END {
  printf "%-14s %16s %16s %10s\n", "folder", "lines", "branches", "reasoned"
  count = split("support ui maps dialog remote plugin", order, " ")
  for (i = 1; i <= count; ++i) {
    f = "src/" order[i]
    printf "%-14s %7d of %5d %7d of %5d %10d\n", f, hit[f], lines[f], taken[f], branches[f],
      reasoned[f, "line"] + reasoned[f, "branch"]
    all_hit += hit[f]; all_lines += lines[f]; all_taken += taken[f]; all_branches += branches[f]
  }
  if (all_lines == 0) { print "nothing was measured"; exit 1 }
  printf "%-14s %15.2f%% %15.2f%%\n", "the core", 100 * all_hit / all_lines,
    100 * all_taken / all_branches
  for (reason in why) {
    if (!(reason in used)) { print "a reason that nothing needs: " reason; ++uncovered }
  }
  exit uncovered > 0
}
