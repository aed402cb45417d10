# The script engine is compiled from its C source, because the packaged binary has the execution-timeout
# check and the check of the native stack off: the configuration header is copied with these lines exchanged.
find_path(DUKTAPE_SOURCE_DIR duktape.c PATHS /usr/share/duktape PATH_SUFFIXES share/duktape REQUIRED)

set(duktape_dir ${CMAKE_BINARY_DIR}/duktape)
file(READ ${DUKTAPE_SOURCE_DIR}/duk_config.h duk_config)
string(REPLACE "#undef DUK_USE_EXEC_TIMEOUT_CHECK"
               "#define DUK_USE_EXEC_TIMEOUT_CHECK(udata) VekScriptInterrupted(udata)\n#if defined(__cplusplus)\nextern \"C\"\n#endif\nint VekScriptInterrupted(void* udata);"
               duk_config "${duk_config}")
string(REPLACE "#undef DUK_USE_NATIVE_STACK_CHECK"
               "#define DUK_USE_NATIVE_STACK_CHECK() VekScriptStackFull()\n#if defined(__cplusplus)\nextern \"C\"\n#endif\nint VekScriptStackFull(void);"
               duk_config "${duk_config}")
string(REPLACE "#undef DUK_USE_INTERRUPT_COUNTER" "#define DUK_USE_INTERRUPT_COUNTER" duk_config "${duk_config}")
# "<!--" starts a comment in web pages only; where an expression ends is told without it.
string(REPLACE "#define DUK_USE_HTML_COMMENTS" "#undef DUK_USE_HTML_COMMENTS" duk_config "${duk_config}")
file(CONFIGURE OUTPUT ${duktape_dir}/duk_config.h CONTENT "${duk_config}" @ONLY)
configure_file(${DUKTAPE_SOURCE_DIR}/duktape.h ${duktape_dir}/duktape.h COPYONLY)
# A regular expression is not interrupted, so that one which runs away ends after about a second.
file(READ ${DUKTAPE_SOURCE_DIR}/duktape.c duktape_source)
string(REPLACE "#define DUK_RE_EXECUTE_STEPS_LIMIT 1000000000L" "#define DUK_RE_EXECUTE_STEPS_LIMIT 100000000L"
               duktape_source "${duktape_source}")
# "x.y is not callable" is worked out before the position in the script is written back: it is, here.
string(REPLACE "\tentry_top = duk_get_top(thr);\n\n\t/* [ <nargs> target ] */"
               "\tduk_hthread_sync_currpc(thr);\n\tentry_top = duk_get_top(thr);\n\n\t/* [ <nargs> target ] */"
               duktape_source "${duktape_source}")
file(CONFIGURE OUTPUT ${duktape_dir}/duktape.c CONTENT "${duktape_source}" @ONLY)

add_library(vek_duktape STATIC ${duktape_dir}/duktape.c)
target_include_directories(vek_duktape SYSTEM PUBLIC ${duktape_dir})
target_compile_options(vek_duktape PRIVATE -w)
