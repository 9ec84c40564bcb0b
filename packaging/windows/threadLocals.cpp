#include <cxxabi.h>

// The compiler's thread-local variables live in memory that belongs to one of the thread library's
// keys, and their destructors run for another key. When a thread ends, keys are cleared in the
// order of their creation; the destructors' key therefore has to exist before the first variable is
// used, or they run on freed memory. Regular expressions, among others, have such a variable.
__attribute__((constructor(101))) static void runDestructorsFirst()
{
    __cxxabiv1::__cxa_thread_atexit([](void *) {}, nullptr, nullptr);
}
