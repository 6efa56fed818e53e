"""The shared library: where it comes from, and the C functions that the package calls."""

from __future__ import annotations

import ctypes
import os

__version__ = "0.1.0"

_SONAME = "libKxJsParser.so.0"

# A letter for each parameter: p for handles, pointers and callbacks, n for size_t, i for int32_t,
# l for int64_t, u for uint64_t, h for uint16_t, d for double. All return a status, but for _OTHERS. A test compares
# this table with the headers.
_TYPES = {
    "p": ctypes.c_void_p,
    "n": ctypes.c_size_t,
    "i": ctypes.c_int32,
    "l": ctypes.c_int64,
    "u": ctypes.c_uint64,
    "d": ctypes.c_double,
    "h": ctypes.c_uint16,
}
SIGNATURES = {
    "kxjs_text_create": "p",
    "kxjs_text_free": "p",
    "kxjs_text_utf16": "ppp",
    "kxjs_texts_create": "p",
    "kxjs_texts_free": "p",
    "kxjs_texts_utf16": "pppp",
    "kxjs_texts_separated_utf16": "phpp",
    "kxjs_host_create": "p",
    "kxjs_host_create_isolated": "ppp",
    "kxjs_host_free": "p",
    "kxjs_host_initialize": "p",
    "kxjs_host_reset": "p",
    "kxjs_host_terminate": "p",
    "kxjs_host_sandbox": "pp",
    "kxjs_host_shared_memory": "ppp",
    "kxjs_host_set_time_limit": "pl",
    "kxjs_host_set_memory_limit": "pu",
    "kxjs_host_set_int32_utf16": "ppni",
    "kxjs_host_set_double_utf16": "ppnd",
    "kxjs_host_set_bool_utf16": "ppni",
    "kxjs_host_set_text_utf16": "ppnpn",
    "kxjs_host_variable_type_utf16": "ppnp",
    "kxjs_host_parse_utf16": "ppnpp",
    "kxjs_host_execute": "pipp",
    "kxjs_host_evaluate_utf16": "ppnpp",
    "kxjs_host_failure": "pppp",
    "kxjs_isolation_init": "pn",
    "kxjs_extract_utf16": "pnlppp",
    "kxjs_columns_create": "pp",
    "kxjs_columns_free": "p",
    "kxjs_columns_bind_double_utf16": "ppnpn",
    "kxjs_columns_bind_int32_utf16": "ppnpn",
    "kxjs_columns_bind_bool_utf16": "ppnpn",
    "kxjs_columns_bind_spans_utf16": "ppnpn",
    "kxjs_columns_compile_utf16": "ppnp",
    "kxjs_columns_set_progress": "ppp",
    "kxjs_columns_evaluate_double": "ppnpp",
    "kxjs_columns_evaluate_bool": "ppnpp",
    "kxjs_columns_evaluate_texts": "ppnpp",
    "kxjs_columns_failure_count": "pp",
    "kxjs_columns_failure": "pnppp",
    "kxjs_convert_utf16": "pnp",
    "kxjs_translator_create": "p",
    "kxjs_translator_free": "p",
    "kxjs_translator_add_variable_utf16": "ppni",
    "kxjs_translator_add_function_utf16": "ppn",
    "kxjs_translator_set_date_format_utf16": "ppn",
    "kxjs_translator_set_epoch": "pi",
    "kxjs_translator_set_exact": "pi",
    "kxjs_translator_set_strict": "pi",
    "kxjs_translator_translate_utf16": "ppnppp",
    "kxjs_translator_check_utf16": "ppnpppp",
    "kxjs_findings_create": "p",
    "kxjs_findings_free": "p",
    "kxjs_findings_count": "pp",
    "kxjs_findings_get": "pnppppp",
    "kxjs_run_time_part": "p",
    "kxjs_functions_create": "ip",
    "kxjs_functions_free": "p",
    "kxjs_functions_count": "pp",
    "kxjs_functions_text": "pnip",
    "kxjs_functions_lists": "pnppp",
    "kxjs_functions_add": "pp",
    "kxjs_functions_set_text_utf16": "pnipn",
    "kxjs_functions_add_parameter_utf16": "pnpnpn",
    "kxjs_functions_add_example_utf16": "pnpn",
    "kxjs_documentation": "iip",
    "kxjs_documentation_pages": "pp",
    "kxjs_version": "",
    "kxjs_status_text": "i",
}
_OTHERS = {"kxjs_status_text": ctypes.c_char_p}


def _load() -> ctypes.CDLL:
    name = os.environ.get("KXJSPARSER_LIBRARY", _SONAME)
    try:
        library = ctypes.CDLL(name)
        for function, parameters in SIGNATURES.items():
            getattr(library, function).argtypes = [_TYPES[letter] for letter in parameters]
            getattr(library, function).restype = _OTHERS.get(function, ctypes.c_int32)
    except (OSError, AttributeError) as error:
        raise ImportError(
            f"kxjsparser {__version__} cannot use the library {name}: {error}. Install the "
            "library, or name its file in the environment variable KXJSPARSER_LIBRARY."
        ) from error
    major, rest = divmod(library.kxjs_version(), 1000000)
    found = f"{major}.{rest // 1000}"
    # Before 1.0, a minor version may change the interface.
    if found != __version__.rpartition(".")[0]:
        raise ImportError(f"kxjsparser {__version__} needs another library than {name}, of {found}")
    return library


library = _load()
