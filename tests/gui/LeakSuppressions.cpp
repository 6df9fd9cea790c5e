// FOX 1.6 keeps the fontconfig pattern of every font it matches (FXFont::match never destroys
// it), so each font made leaks a little inside fontconfig. That is the toolkit's, not ours. The
// leak checker unwinds no further than fontconfig's own frames, so the suppression names that
// library; leaks anywhere else are still reported.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }
