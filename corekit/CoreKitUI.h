// Everything that both libraries offer. A program that minds its
// build time includes what it uses instead. Made by tools/make_umbrella.sh.
#pragma once

#include "corekit/CoreKit.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/fonts/GlyphFont.h"
#include "corekit/unicode/ui/FontSignature.h"
#include "corekit/unicode/ui/GlyphRuns.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/keyboards/KBT_Devanagari.h"
#include "corekit/unicode/ui/keyboards/KBT_Welsh.h"
#include "corekit/unicode/ui/keyboards/SystemKeyboard.h"
#include "corekit/unicode/ui/keyboards/TableKeyboard.h"
#include "corekit/unicode/ui/keyboards/Typist.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "corekit/unicode/ui/UniRender.h"
#include "corekit/unicode/ui/UsbRanges.h"
#include "corekit/unicode/ui/XPCConfigNode.h"
