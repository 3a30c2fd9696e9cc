// libFuzzer target for the HTTP face's request handling: any bytes, read
// as pipelined requests, then each one's method, path and JSON body made
// into a typed call or refused with a client error, never a crash.
#include <cstddef>
#include <cstdint>
#include <string>

#include "remote/api_request.h"
#include "remote/field_json.h"
#include "remote/http_request.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string buffer(reinterpret_cast<const char*>(data), size);
    for (int n = 0; n < 8; ++n) {
        orv::UstHttpRequest request;
        std::string error;
        const int result = orv::TakeHttpRequest(buffer, request, error);
        if (result != orv::HTTP_DONE) break;
        if (request.strBody.size() > orv::HTTP_BODY_MAX) __builtin_trap();
        orv::UstApiCall call;
        orv::UstApiError refused;
        if (orv::ParseApiRequest(request.strMethod, request.strPath, request.strBody, call,
                                 refused)) {
            if ((call.nCall == orv::API_TAKE || call.nCall == orv::API_PAGE_DATA) && call.nPage < 1)
                __builtin_trap();
        } else if (refused.nStatus < 400 || refused.nStatus > 499) {
            __builtin_trap();
        }
    }
    // The body alone as field values, too.
    orv::FieldValues values;
    std::string message;
    if (orv::ParseFieldJson(std::string(reinterpret_cast<const char*>(data), size), values,
                            message) == !message.empty())
        __builtin_trap();
    return 0;
}
