#include "host/desktop/SystemPorts.h"

#include "platform/windows/CompiledHelp.h"
#include "platform/windows/PictureCodec.h"
#include "platform/windows/ProfileSettings.h"
#include "platform/windows/ProgramVersion.h"

namespace host {

SystemPorts PortsOfThisSystem() {
    static const lumarin::windows::ProgramVersion engine;
    static const lumarin::windows::ProfileSettings settings;
    static lumarin::windows::CompiledHelp help;
    return {engine, &settings, lumarin::windows::DecodeHeic, &help};
}

}  // namespace host
