// A library that is gathered from other targets needs one source of its own to choose its linker.
