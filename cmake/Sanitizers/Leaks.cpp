// What the leak checker of every instrumented program says nothing about: what the libraries of
// others keep until the end, or lose by themselves. No entry names code of ours.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __asan_default_options();
extern "C" const char* __ubsan_default_options();

extern "C" const char* __lsan_default_suppressions() {
    return "";
}

extern "C" const char* __asan_default_options() {
    return "detect_leaks=1:detect_stack_use_after_return=1"
           ":external_symbolizer_path=/usr/lib/llvm-19/bin/llvm-symbolizer";
}

extern "C" const char* __ubsan_default_options() {
    return "print_stacktrace=1:external_symbolizer_path=/usr/lib/llvm-19/bin/llvm-symbolizer";
}
