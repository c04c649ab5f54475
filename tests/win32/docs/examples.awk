# Takes one program out of a page: awk -v program=host.js [-v want=output] -f examples.awk PAGE
# A program is all blocks whose fence names it. With want=output: what it should print, which is
# what stands behind each arrow.
/^```/ {
  inside = !inside && $2 == program
  next
}
inside && want != "output"
inside && want == "output" && match($0, /-> /) { print substr($0, RSTART + 3) }
