#include <cstdlib>
#include <cstring>

#include "render/pixel_kernels.h"

namespace orv {

bool CpuHasAvx2() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2");
}

const UstPixelKernels& KernelsFor(EKernelSet set) {
    switch (set) {
        case EKernelSet::SCALAR:
            return ScalarKernels();
        case EKernelSet::SSE2:
            return Sse2Kernels();
        case EKernelSet::AVX2:
            return CpuHasAvx2() ? Avx2Kernels() : Sse2Kernels();
    }
    return ScalarKernels();
}

const UstPixelKernels& ActiveKernels() {
    static const UstPixelKernels& chosen = []() -> const UstPixelKernels& {
        const char* forced = std::getenv("ORVANTIS_PIXEL_KERNELS");
        if (forced && std::strcmp(forced, "scalar") == 0) return ScalarKernels();
        if (forced && std::strcmp(forced, "sse2") == 0) return Sse2Kernels();
        return KernelsFor(EKernelSet::AVX2);
    }();
    return chosen;
}

}  // namespace orv
