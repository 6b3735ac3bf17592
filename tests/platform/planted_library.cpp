// A DLL beside a program, as somebody might have planted it.
extern "C" __declspec(dllexport) int PlantedNumber() {
    return 1;
}
