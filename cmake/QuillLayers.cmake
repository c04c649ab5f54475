# The layers of src/, from the bottom up, and what each of them may use. This table is the link
# graph and the include rule at once: quill_library() links from it, check_layers.cmake reads it. The
# Windows layers are built for Windows only.
set(QUILL_WINDOWS_LAYERS com win32 server)

set(QUILL_LAYERS support ui headless com win32 maps dialog remote plugin server)

set(QUILL_LAYER_support)
set(QUILL_LAYER_ui support)
set(QUILL_LAYER_headless ui support)
set(QUILL_LAYER_com support)
set(QUILL_LAYER_win32 ui com support)
set(QUILL_LAYER_maps support)
set(QUILL_LAYER_dialog ui maps support)
set(QUILL_LAYER_remote dialog ui maps support)
set(QUILL_LAYER_plugin remote dialog ui maps support)
set(QUILL_LAYER_server com win32 plugin remote dialog ui maps support)
