// SPDX-License-Identifier: MIT
//
// The three functions that libonuconfig.so exports.
//
//     auto show = reinterpret_cast<onudesk::ShowHolderConfigFormFn>(
//         dlsym(library, onudesk::kShowHolderConfigForm));
//     show(qApp, &routes, &param, &workerThreadId, &releaseReply);
#pragma once

#include "onudesk/code_para.h"
#include "onudesk/holder_config_param.h"
#include "onudesk/reply_routes.h"

class QApplication;

namespace onudesk {

inline constexpr const char* kPluginFileName = "libonuconfig.so";
inline constexpr const char* kShowHolderConfigForm = "ShowHolderConfigForm";
inline constexpr const char* kNewDllClientCodePara = "newDllClientCodePara";
inline constexpr const char* kDeleteDllClientCodePara = "deleteDllClientCodePara";

// Shows the window modally on the calling (user-interface) thread and returns after it closed.
// `hostThreadId` points to the ThreadQueue id that requests are posted to. All arguments must
// stay valid for the duration of the call. The returned value carries no information.
using ShowHolderConfigFormFn = int (*)(QApplication* application, ReplyRouteTable* routeTable,
                                       const HolderConfigParam* param,
                                       const std::uint32_t* hostThreadId,
                                       ReleaseCodeParaFn releaseFn);
// A fresh, empty record, or null when memory is short.
using NewDllClientCodeParaFn = DllClientCodePara* (*)();
// Destroys the record that `*holder` names, if any, and sets `*holder` to null.
using DeleteDllClientCodeParaFn = void (*)(DllClientCodePara** holder);

} // namespace onudesk
