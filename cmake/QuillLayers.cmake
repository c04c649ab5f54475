# The layers of src/, from the bottom up, and what each of them may use. This table is the link
# graph and the include rule at once: quill_library() links from it, check_layers.cmake reads it.

set(QUILL_LAYERS support ui maps dialog remote plugin headless win32)

set(QUILL_LAYER_support)
set(QUILL_LAYER_ui support)
set(QUILL_LAYER_maps support)
set(QUILL_LAYER_dialog ui maps support)
set(QUILL_LAYER_remote dialog ui maps support)
set(QUILL_LAYER_plugin remote dialog ui maps support)
set(QUILL_LAYER_headless plugin remote dialog ui maps support)
set(QUILL_LAYER_win32 plugin remote dialog ui maps support)
