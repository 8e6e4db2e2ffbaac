#include "host/desktop/SystemPorts.h"

#include "platform/windows/ClipboardBitmap.h"
#include "platform/windows/CompiledHelp.h"
#include "platform/windows/PictureCodec.h"
#include "platform/windows/ProfileSettings.h"
#include "platform/windows/ProgramVersion.h"
#include "platform/windows/WindowsFiles.h"

namespace host {

SystemPorts PortsOfThisSystem() {
    static const lumarin::windows::ProgramVersion engine;
    static const lumarin::windows::ProfileSettings settings;
    static const lumarin::windows::WindowsFiles files;
    static lumarin::windows::CompiledHelp help;
    return {
        engine, &settings, lumarin::windows::DecodeHeic, &files, {&help, lumarin::windows::ClipboardBitmap}};
}

}  // namespace host
