// A whole reply of the remote machine, from its frame to the filled dialog and its model lists.
#pragma once

namespace quill::bench {

// Server maps in the reply.
inline constexpr int kMapCounts[] = {0, 10, 255, 10'000, 100'000};

// Measures "reply/MAPS/WHO": "ours", from the frame to the list of server maps; "dialog", to the
// dialog with all its options and the maps that it shows; "kit", what of either is the host's own
// file kit, here a copy of the payload; "by_hand", a split of the same characters, as bytes, by
// memchr with modp_b64 on each entry; "by_hand_apart", the same with each entry taken apart into
// name, file and game type, as ours are; and a copy of these as the floor.
void RegisterReplies();

}  // namespace quill::bench
