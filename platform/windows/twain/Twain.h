#pragma once

#include <cstdint>

/// What the adapter uses of the TWAIN interface, under its own names. Structures are packed to 2 bytes.
namespace lumarin::twain {

using TW_UINT16 = std::uint16_t;
using TW_UINT32 = std::uint32_t;
using TW_BOOL = std::uint16_t;
using TW_HANDLE = void*;
using TW_MEMREF = void*;
using TW_STR32 = char[34];

#pragma pack(push, 2)

struct TW_VERSION {
    TW_UINT16 MajorNum;
    TW_UINT16 MinorNum;
    TW_UINT16 Language;
    TW_UINT16 Country;
    TW_STR32 Info;
};

/// An application or a source; texts in the system's code page.
struct TW_IDENTITY {
    TW_UINT32 Id;
    TW_VERSION Version;
    TW_UINT16 ProtocolMajor;
    TW_UINT16 ProtocolMinor;
    TW_UINT32 SupportedGroups;  ///< DG_ and DF_ values
    TW_STR32 Manufacturer;
    TW_STR32 ProductFamily;
    TW_STR32 ProductName;
};

struct TW_STATUS {
    TW_UINT16 ConditionCode;  ///< a TWCC_ value
    TW_UINT16 Reserved;
};

struct TW_USERINTERFACE {
    TW_BOOL ShowUI;
    TW_BOOL ModalUI;
    TW_HANDLE hParent;
};

struct TW_EVENT {
    TW_MEMREF pEvent;  ///< a message of the system's
    TW_UINT16 TWMessage;
};

struct TW_PENDINGXFERS {
    TW_UINT16 Count;  ///< 0xFFFF: more, not known how many
    TW_UINT32 EOJ;
};

/// A capability and the memory of its container.
struct TW_CAPABILITY {
    TW_UINT16 Cap;
    TW_UINT16 ConType;
    TW_HANDLE hContainer;
};

struct TW_ONEVALUE {
    TW_UINT16 ItemType;
    TW_UINT32 Item;
};

/// The source manager's memory functions, from its version 2 on.
struct TW_ENTRYPOINT {
    TW_UINT32 Size;
    TW_MEMREF DSM_Entry;
    TW_MEMREF DSM_MemAllocate;
    TW_MEMREF DSM_MemFree;
    TW_MEMREF DSM_MemLock;
    TW_MEMREF DSM_MemUnlock;
};

#pragma pack(pop)

inline constexpr TW_UINT32 DG_CONTROL = 1, DG_IMAGE = 2;
inline constexpr TW_UINT32 DF_DSM2 = 0x10000000, DF_APP2 = 0x20000000;

inline constexpr TW_UINT16 DAT_NULL = 0, DAT_CAPABILITY = 1, DAT_EVENT = 2, DAT_IDENTITY = 3, DAT_PARENT = 4,
                           DAT_PENDINGXFERS = 5, DAT_STATUS = 8, DAT_USERINTERFACE = 9,
                           DAT_IMAGENATIVEXFER = 0x104, DAT_ENTRYPOINT = 0x403;

inline constexpr TW_UINT16 MSG_GET = 1, MSG_GETCURRENT = 2, MSG_GETDEFAULT = 3, MSG_GETFIRST = 4,
                           MSG_GETNEXT = 5, MSG_SET = 6, MSG_RESET = 7, MSG_XFERREADY = 0x101,
                           MSG_CLOSEDSREQ = 0x102, MSG_CLOSEDSOK = 0x103, MSG_OPENDSM = 0x301,
                           MSG_CLOSEDSM = 0x302, MSG_OPENDS = 0x401, MSG_CLOSEDS = 0x402,
                           MSG_DISABLEDS = 0x501, MSG_ENABLEDS = 0x502, MSG_PROCESSEVENT = 0x601,
                           MSG_ENDXFER = 0x701;

inline constexpr TW_UINT16 TWRC_SUCCESS = 0, TWRC_FAILURE = 1, TWRC_CHECKSTATUS = 2, TWRC_CANCEL = 3,
                           TWRC_DSEVENT = 4, TWRC_NOTDSEVENT = 5, TWRC_XFERDONE = 6, TWRC_ENDOFLIST = 7;

inline constexpr TW_UINT16 TWCC_SUCCESS = 0, TWCC_BUMMER = 1, TWCC_LOWMEMORY = 2, TWCC_NODS = 3,
                           TWCC_MAXCONNECTIONS = 4, TWCC_OPERATIONERROR = 5, TWCC_BADPROTOCOL = 9,
                           TWCC_BADVALUE = 10, TWCC_CAPUNSUPPORTED = 13, TWCC_DENIED = 16, TWCC_PAPERJAM = 20,
                           TWCC_PAPERDOUBLEFEED = 21, TWCC_CHECKDEVICEONLINE = 23, TWCC_INTERLOCK = 24,
                           TWCC_NOMEDIA = 29;

inline constexpr TW_UINT16 TWON_ENUMERATION = 4, TWON_ONEVALUE = 5, TWON_RANGE = 6;
inline constexpr TW_UINT16 TWTY_INT8 = 0, TWTY_INT16 = 1, TWTY_INT32 = 2, TWTY_UINT8 = 3, TWTY_UINT16 = 4,
                           TWTY_UINT32 = 5, TWTY_BOOL = 6, TWTY_FIX32 = 7;

inline constexpr TW_UINT16 CAP_XFERCOUNT = 0x0001, ICAP_PIXELTYPE = 0x0101, ICAP_UNITS = 0x0102,
                           ICAP_XFERMECH = 0x0103, CAP_FEEDERENABLED = 0x1002, CAP_FEEDERLOADED = 0x1003,
                           CAP_AUTOFEED = 0x1007, CAP_PAPERDETECTABLE = 0x100D, CAP_DUPLEXENABLED = 0x1013,
                           ICAP_XRESOLUTION = 0x1118, ICAP_YRESOLUTION = 0x1119;
inline constexpr TW_UINT16 TWPT_RGB = 2, TWUN_INCHES = 0, TWSX_NATIVE = 0, TWLG_USA = 13, TWCY_USA = 1;

}  // namespace lumarin::twain
