// A DLL that does nothing: what loading one costs at least.
extern "C" __declspec(dllexport) int Nothing() { return 1; }
