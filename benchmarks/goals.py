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
