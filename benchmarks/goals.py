"""The goals of the benchmarks: one table for each kind."""

# What each path must reach, as a multiple of the best peer, or of the one named.
GOALS = {
    "chardata/general_type_random_bmp": 4, "chardata/general_type_text": 4,
    "chardata/bidi_type_random_bmp": 4, "chardata/bidi_type_text": 4,
    "chardata/to_upper_random_bmp": 4, "chardata/to_upper_text": 4,
    "bidi/latin": 8, "bidi/mixed_ltr": 5, "bidi/mixed_rtl": 5,
    "shaping/arabic": 3,
    "indic/devanagari": 20, "indic/bengali": 20, "indic/tamil": 20, "indic/mixed": 20,
    "streams/memory_write": 1.2, "streams/memory_read": 1.5,
    "streams/file_write": 1.5, "streams/file_read": 1.2,
    "strings/copy": (1.1, "qt6_qstring"), "strings/copy_then_write": (1, "std_u16string"), "strings/find_units": 1,
    "strings/make": (1, "qt6_qstring"), "strings/equal": (1, "qt6_qstring"),
    "strings/order": (1.2, "std_u16string"), "strings/order_narrow": (1.2, "std_string"),
    "strings/format": 1,
    "messages/post_and_dispatch": 0.67, "messages/message_box": 0.83,
    "edit/key_4_kib": 1, "edit/key_64_kib": 1, "list/fill_100000_rows": 1,
    "draw/measure": 5, "draw/raster": 1.5, "manager/start": 0.5,
    "registry/read": 2, "registry/write": 1,
    "logging/flushed_line": (1.4, "spdlog"), "logging/formatted_line": (1.2, "spdlog"), "logging/filtered_out": 2,
    "words/lookup_hit": (3, "lmdb"), "words/lookup_miss": (3, "lmdb"), "words/prefix_found": (0.5, "sorted"), "words/wildcard_queries": (3, "sorted_fnmatch"),
    "settings/serialise": (1, "rapidjson"), "settings/deserialise": (1, "rapidjson_in_place"), "settings/lookup": (1, "jansson"),
    "settings/lookup_flat": (1, "jansson"), "settings/lookup_second_thread": (1.2, "jansson"),
    "conversion/wildcards": 1.5, "conversion/adler32": 5,
    "conversion/quicksort": 0.9, "conversion/sort_integers": 0.9, "conversion/sort_texts": 0.9,
    "records/add": (1.3, "lmdb_one_transaction"), "records/delete": (5, "lmdb_one_transaction"), "records/get": 1, "records/replace": 1.2,
    "ports/batch_of_10000": (1, "libuv"), "ports/round_trip": 1,
    "codepages/read_utf8": 1.2, "codepages/write_utf8": 1.2, "codepages/read_65001": 1, "codepages/write_65001": 1,
    "codepages/read_1256": 0.9, "codepages/write_1256": 0.9, "codepages/read_932": 0.9, "codepages/write_932": 0.9,
    "sockets/echo_64": 1, "sockets/echo_4096": 1,
    "ftp/upload_64_mib": 1, "ftp/download_64_mib": 1, "ftp/upload_small_files": 1, "ftp/download_small_files": 1,
    "graphics/load_24": 1, "graphics/save_24": 1, "graphics/draw_24": 0.83, "graphics/stretch_24": 0.83,
    "graphics/button": 0.83, "prompter/frame_40_lines": 2,
    "devices/serial_echo_64": 0.9, "devices/serial_echo_1024": 0.9, "devices/service_status": 0.9,
    "packing/deflate": 0.97, "packing/inflate": 1.5,
}

# How often a second at least, whatever peers do.
LEAST = {
    # 10 ms, 12 MiB, 15 ms
    "startup/service": 100, "startup/services_in_a_gib": 85.4, "startup/tool_help": 66.7,
    "graphics/flip": 250, "prompter/frame_40_lines": 250,
    "components/bars_relayout": 62.5, "components/overlay_switch": 62.5, "components/list_page": 125,
}

# What a rate counts, where it is not something a second.
UNITS = {"startup/services_in_a_gib": " fit"}

# What stands in the way of a goal, as a profile shows it; printed for the paths that are short.
REMARKS = {
    "settings/lookup_flat": "seven tenths of the time wait for memory: the bunch of names, the place in it, the item. The "
                            "peer waits for two of these, compares bytes where names here are found without regard to case, "
                            "and does not copy the value out.",
    "settings/lookup": "each of three levels is found as above; the two stores on the way are handed out as objects of their "
                       "own, a fifth of the time.",
    "settings/lookup_second_thread": "two thirds of the time find the three names, as `settings/lookup_flat` does one; the two "
                                     "stores on the way are handed out as objects of their own, with atomic counts, a quarter.",
    "settings/deserialise": "four tenths of the time copy names and values out of the stream and order them by name, a "
                            "quarter is the allocator's, for each nested store has memory of its own; the peer leaves its "
                            "texts in the caller's bytes, orders nothing and takes all memory from one pool.",
    "strings/copy_then_write": "six tenths of the time are the allocator's, as the peer's are; the share that is counted up and "
                               "down comes on top, as `limit_two_counts` has it.",
    "strings/copy": "the share is counted up and down, as `limit_two_counts` does alone.",
    "records/replace": "nine tenths of the time pass in the system's calls that write; `limit_calls` makes these alone. The "
                       "peer maps its file.",
    "records/delete": "more than half of the time looks among the free spaces for the neighbours of the one that is added; "
                      "runs differ, 4.6 to 5.5 times the peer.",
    "records/add": "as `records/replace`.",
    "logging/flushed_line": "86 % of the time pass in the one call that writes the line; `limit_write` makes it alone.",
    "registry/write": "61 % of the time pass in the system's calls and 29 % in SQLite, which is the peer; what is written lies "
                      "in its file here, too, with the key's time of change.",
    "words/lookup_hit": "38 % of the time the index waits for memory and 33 % the word that it names is compared: each lies "
                        "somewhere else in the file.",
    "words/prefix_found": "each leaf of the file is searched for the prefix, where the peer has all words in one sorted array.",
    "codepages/write_utf8": "39 % of the time convert; the rest makes the text and copies into it, as the peer does.",
    "codepages/read_utf8": "as `codepages/write_utf8`.",
    "streams/memory_write": "two thirds of the time write through checks that are inlined, a fifth counts the length of each "
                            "text; the peer is given the lengths.",
    "ftp/upload_64_mib": "both wait for the server, which writes what it takes.",
    "ftp/download_64_mib": "both wait for the server, which sends as fast as it reads its file.",
    "ports/batch_of_10000": "half of the time the queue's lock is taken and given back, once for each job posted and once for "
                            "each taken, as with the peer; who waits less for it on two processors changes from run to run.",
    "sockets/echo_64": "both make the same two system calls; what is measured beyond them is the machine's unrest.",
    "sockets/echo_4096": "as `sockets/echo_64`.",
    "devices/serial_echo_64": "both make the same calls of the system; what is measured beyond them is the machine's unrest.",
    "devices/service_status": "both ask the same bus; what is measured beyond that is the machine's unrest.",
}
