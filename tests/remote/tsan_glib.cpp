// The server's thread runs Qt's event loop on GLib, which wakes a thread
// by writing to a descriptor that the thread closes as it ends, with the
// order kept by locks inside the two libraries, where the thread checker
// cannot see. Its calls into the system are left out of the checking; our
// own code stays checked.
extern "C" const char* __tsan_default_suppressions() {
    return "called_from_lib:libglib-2.0.so.0\n";
}
