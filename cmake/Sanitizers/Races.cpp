// The toolkit's and the bus's libraries are not instrumented, so what they do among themselves
// would look like races. Ours is seen whole: work and values are handed from thread to thread under
// locks and atomics of our own.
extern "C" const char* __tsan_default_options();

extern "C" const char* __tsan_default_options() {
    return "ignore_noninstrumented_modules=1"
           ":external_symbolizer_path=/usr/lib/llvm-19/bin/llvm-symbolizer";
}
