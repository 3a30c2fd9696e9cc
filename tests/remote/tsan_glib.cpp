// The server's thread runs Qt's event loop on GLib. Qt hands a queued call
// from one thread to another, and wakes and ends a thread, under locks of
// its own and GLib's, built without the thread checker, which therefore
// takes the event that one thread allocates and another frees, or the
// descriptor one writes and another closes, for a race. What those two
// libraries call into the system is left out of the checking; our own code
// stays checked, the data our calls carry across threads under locks the
// checker sees.
extern "C" const char* __tsan_default_suppressions() {
    return "called_from_lib:libglib-2.0.so.0\n"
           "called_from_lib:libQt6Core.so.6\n";
}
