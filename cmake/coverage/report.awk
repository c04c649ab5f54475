# Reads the reasons file and then an lcov tracefile: prints figures per folder of the core, what is
# not covered and has no reason, and reasons that nothing needs any more. Exit code 1 where there is
# either.
#
# A reason is a line "path: code: why" with the code as it stands in the source, without the blanks
# around it. It covers each line of that file with that code, and the branches on it.

function source_line(path, number,    line, at) {
  if (!(path in loaded)) {
    loaded[path] = 1
    while ((getline line < (root "/" path)) > 0) {
      gsub(/^[ \t]+|[ \t]+$/, "", line)
      code[path, ++at] = line
    }
    close(root "/" path)
  }
  return code[path, number]
}

function missed(kind, number,    key) {
  key = path ": " source_line(path, number)
  for (reason in why) {
    if (index(reason, key ": ") == 1) {
      used[reason] = 1
      reasoned[folder, kind]++
      return
    }
  }
  if (!((path, number, kind) in told)) {
    told[path, number, kind] = 1
    print path ":" number ": " kind " not covered: " source_line(path, number)
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
  branches[folder]++
  if (field[4] != "-" && field[4] != 0) taken[folder]++
  else waiting[++held] = path "," folder "," field[1]
}
/^end_of_record/ {
  # The branches on a line that is never reached are told with the line.
  for (i = 1; i <= held; ++i) {
    split(waiting[i], field, ",")
    if (!dead[field[1], field[3]]) missed("branch", field[3]); else with_line[folder]++
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
