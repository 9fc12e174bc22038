// A plug-in for load_plugin.
extern "C" __declspec(dllexport) int SensorBands() { return 4; }
