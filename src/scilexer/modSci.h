// SPDX-License-Identifier: GPL-3.0-or-later
// The only interface to the edit control: an opaque handle and messages, with the published names and numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ob {

// What the plugin returns for one edit window. The handle is null while a window has no control.
class cSciControl {
public:
    cSciControl(const cSciControl&) = delete;
    cSciControl& operator=(const cSciControl&) = delete;

    virtual std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) = 0;

protected:
    cSciControl() = default;
    ~cSciControl() = default;
};

using Sci = cSciControl*;

enum SciMessage : unsigned {
    SCI_ADDTEXT = 2001,
    SCI_INSERTTEXT = 2003,
    SCI_CLEARALL = 2004,
    SCI_GETLENGTH = 2006,
    SCI_GETCHARAT = 2007,
    SCI_GETCURRENTPOS = 2008,
    SCI_GETSTYLEAT = 2010,
    SCI_REDO = 2011,
    SCI_SELECTALL = 2013,
    SCI_SETSAVEPOINT = 2014,
    SCI_POSITIONFROMPOINTCLOSE = 2023,
    SCI_GOTOLINE = 2024,
    SCI_GOTOPOS = 2025,
    SCI_GETENDSTYLED = 2028,
    SCI_STARTSTYLING = 2032,
    SCI_SETSTYLING = 2033,
    SCI_SETTABWIDTH = 2036,
    SCI_SETCODEPAGE = 2037,
    SCI_MARKERDEFINE = 2040,
    SCI_MARKERSETBACK = 2042,
    SCI_MARKERADD = 2043,
    SCI_MARKERDELETE = 2044,
    SCI_MARKERDELETEALL = 2045,
    SCI_MARKERGET = 2046,
    SCI_MARKERNEXT = 2047,
    SCI_MARKERPREVIOUS = 2048,
    SCI_STYLECLEARALL = 2050,
    SCI_STYLESETFORE = 2051,
    SCI_STYLESETBACK = 2052,
    SCI_STYLESETBOLD = 2053,
    SCI_STYLESETITALIC = 2054,
    SCI_STYLESETSIZE = 2055,
    SCI_STYLESETFONT = 2056,
    SCI_SETSELFORE = 2067,
    SCI_SETSELBACK = 2068,
    SCI_SETSTYLINGEX = 2073,
    SCI_SETWORDCHARS = 2077,
    SCI_BEGINUNDOACTION = 2078,
    SCI_ENDUNDOACTION = 2079,
    SCI_SETSTYLEBITS = 2090,
    SCI_SETLINESTATE = 2092,
    SCI_GETLINESTATE = 2093,
    SCI_SETCARETLINEVISIBLE = 2096,
    SCI_SETCARETLINEBACK = 2098,
    SCI_AUTOCSHOW = 2100,
    SCI_AUTOCCANCEL = 2101,
    SCI_AUTOCACTIVE = 2102,
    SCI_AUTOCSETIGNORECASE = 2115,
    SCI_AUTOCSETAUTOHIDE = 2118,
    SCI_SETUSETABS = 2124,
    SCI_SETLINEINDENTATION = 2126,
    SCI_GETLINEINDENTATION = 2127,
    SCI_SETINDENTATIONGUIDES = 2132,
    SCI_GETLINEENDPOSITION = 2136,
    SCI_GETSELECTIONSTART = 2143,
    SCI_GETSELECTIONEND = 2145,
    SCI_SETPRINTCOLOURMODE = 2148,
    SCI_FORMATRANGE = 2151,
    SCI_GETFIRSTVISIBLELINE = 2152,
    SCI_GETLINE = 2153,
    SCI_GETLINECOUNT = 2154,
    SCI_GETMODIFY = 2159,
    SCI_SETSEL = 2160,
    SCI_GETSELTEXT = 2161,
    SCI_POINTXFROMPOSITION = 2164,
    SCI_POINTYFROMPOSITION = 2165,
    SCI_LINEFROMPOSITION = 2166,
    SCI_POSITIONFROMLINE = 2167,
    SCI_LINESCROLL = 2168,
    SCI_SCROLLCARET = 2169,
    SCI_REPLACESEL = 2170,
    SCI_CANUNDO = 2174,
    SCI_EMPTYUNDOBUFFER = 2175,
    SCI_UNDO = 2176,
    SCI_CUT = 2177,
    SCI_COPY = 2178,
    SCI_PASTE = 2179,
    SCI_CLEAR = 2180,
    SCI_GETTEXT = 2182,
    SCI_GETTEXTLENGTH = 2183,
    SCI_SETOVERTYPE = 2186,
    SCI_GETOVERTYPE = 2187,
    SCI_GETTARGETEND = 2193,
    SCI_REPLACETARGET = 2194,
    SCI_SEARCHINTARGET = 2197,
    SCI_SETSEARCHFLAGS = 2198,
    SCI_CALLTIPSHOW = 2200,
    SCI_CALLTIPCANCEL = 2201,
    SCI_CALLTIPACTIVE = 2202,
    SCI_CALLTIPPOSSTART = 2203,
    SCI_CALLTIPSETHLT = 2204,
    SCI_VISIBLEFROMDOCLINE = 2220,
    SCI_DOCLINEFROMVISIBLE = 2221,
    SCI_SETFOLDLEVEL = 2222,
    SCI_GETFOLDLEVEL = 2223,
    SCI_SETMARGINWIDTHN = 2242,
    SCI_GETMARGINWIDTHN = 2243,
    SCI_SETBACKSPACEUNINDENTS = 2262,
    SCI_WORDSTARTPOSITION = 2266,
    SCI_SETWRAPMODE = 2268,
    SCI_GETWRAPMODE = 2269,
    SCI_TEXTWIDTH = 2276,
    SCI_TEXTHEIGHT = 2279,
    SCI_APPENDTEXT = 2282,
    SCI_LINELENGTH = 2350,
    SCI_BRACEHIGHLIGHT = 2351,
    SCI_BRACEBADLIGHT = 2352,
    SCI_LINESONSCREEN = 2370,
    SCI_GETMODEVENTMASK = 2378,
    SCI_SETFOCUS = 2380,
    SCI_SETSTATUS = 2382,
    SCI_GETSTATUS = 2383,
    SCI_GRABFOCUS = 2400,
    SCI_POSITIONAFTER = 2418,
    SCI_STYLEGETFORE = 2481,
    SCI_STYLEGETBACK = 2482,
    SCI_GETCHARACTERPOINTER = 2520,
    SCI_SCROLLRANGE = 2569,
    SCI_AUTOCGETCURRENTTEXT = 2610,
    SCI_SETFIRSTVISIBLELINE = 2613,
    SCI_COUNTCHARACTERS = 2633,
    SCI_GETRANGEPOINTER = 2643,
    SCI_GETGAPPOSITION = 2644,
    SCI_AUTOCSETORDER = 2660,
    SCI_POSITIONRELATIVE = 2670,
    SCI_SETTARGETRANGE = 2686,
    SCI_ISRANGEWORD = 2691,
    SCI_SETLEXER = 4001,
    SCI_COLOURISE = 4003,
    SCI_SETPROPERTY = 4004,
    SCI_SETKEYWORDS = 4005,
};

// Sends one message; a null handle returns 0, like a window that no longer exists.
inline std::intptr_t SendSci(Sci sci, unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0)
{
    return sci == nullptr ? 0 : sci->Send(message, wParam, lParam);
}

inline std::intptr_t SendSci(Sci sci, unsigned message, std::uintptr_t wParam, const char* text)
{
    return SendSci(sci, message, wParam, reinterpret_cast<std::intptr_t>(text));
}

// For messages whose arguments are both texts.
inline std::intptr_t SendSciTexts(Sci sci, unsigned message, const char* name, const char* text)
{
    return SendSci(sci, message, reinterpret_cast<std::uintptr_t>(name), reinterpret_cast<std::intptr_t>(text));
}

// The whole text of the control, UTF-8, in the control's own memory: valid until the next change of the text.
inline std::string_view SciText(Sci sci)
{
    if (sci == nullptr)
        return {};
    const auto length = static_cast<std::size_t>(SendSci(sci, SCI_GETLENGTH));
    return {reinterpret_cast<const char*>(SendSci(sci, SCI_GETCHARACTERPOINTER)), length};
}

} // namespace ob
