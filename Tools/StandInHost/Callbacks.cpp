// The six functions that the host's executable exports. Their results show whether the plug-in
// passes them on where it must and ignores them elsewhere.

#include "Host.h"
#include "Log.h"

#define STANDIN_EXPORT extern "C" __declspec(dllexport)

using standin::Hex;
using standin::Host;
using standin::Place;
using standin::Quoted;

namespace {

constexpr int kGoOn = 1;
constexpr int kCancelled = 0;
constexpr int kMessageResult = 77;
constexpr int kInstrumentsResult = 88;

}  // namespace

STANDIN_EXPORT int VEL_LOADTEMPFILE(const char* scorePath) {
    Host::Get().LogCall("VEL_LOADTEMPFILE(" + Quoted(scorePath) + ")");
    Host::Get().CopyScore(scorePath);
    Host::Get().Interrupt(Place::LoadTempFile);
    return 0;
}

STANDIN_EXPORT int VEL_RESULTSDIALOGMESSAGE(const char* title, const char* fileName, int kind,
                                            int location1, int location2, const char* text) {
    Host::Get().LogCall("VEL_RESULTSDIALOGMESSAGE(" + Quoted(title) + ", " + Quoted(fileName) +
                        ", " + std::to_string(kind) + ", " + std::to_string(location1) + ", " +
                        std::to_string(location2) + ", " + Quoted(text) + ")");
    Host::Get().Interrupt(Place::ResultsMessage);
    return kMessageResult;
}

STANDIN_EXPORT int VEL_UPDATEPROGRESSDIALOG(std::uintptr_t cookie, int percent,
                                            const char* caption) {
    Host::Get().LogCall("VEL_UPDATEPROGRESSDIALOG(" + Hex(cookie) + ", " + std::to_string(percent) +
                        ", " + Quoted(caption) + ")");
    return Host::Get().Interrupt(Place::Update) ? kCancelled : kGoOn;
}

STANDIN_EXPORT int VEL_DESTROYPROGRESSDIALOG(std::uintptr_t cookie) {
    Host::Get().LogCall("VEL_DESTROYPROGRESSDIALOG(" + Hex(cookie) + ")");
    Host::Get().Interrupt(Place::Destroy);
    return 0;
}

STANDIN_EXPORT int VEL_CREATEPROGRESSDIALOG_2(std::uintptr_t cookie, const char* title, int minimum,
                                              int maximum, int last) {
    Host::Get().LogCall("VEL_CREATEPROGRESSDIALOG_2(" + Hex(cookie) + ", " + Quoted(title) + ", " +
                        std::to_string(minimum) + ", " + std::to_string(maximum) + ", " +
                        std::to_string(last) + ")");
    Host::Get().Interrupt(Place::Create);
    return 0;
}

STANDIN_EXPORT int VEL_CHOOSETRANSPOSINGINSTRUMENTS(std::uintptr_t value1, std::uintptr_t value2) {
    Host::Get().LogCall("VEL_CHOOSETRANSPOSINGINSTRUMENTS(" + std::to_string(value1) + ", " +
                        std::to_string(value2) + ")");
    Host::Get().Interrupt(Place::Instruments);
    return kInstrumentsResult;
}
