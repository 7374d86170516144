# The alternatives that the machine has. Each becomes a target; the rows of the others are left out.

function(zt_orvex_find_peer name header suffixes)
    find_path(PEER_${name}_INCLUDE NAMES ${header} PATH_SUFFIXES ${suffixes}
        HINTS /usr/lib/llvm-19/include)
    set(libraries "")
    foreach(library ${ARGN})
        find_library(PEER_${library} NAMES ${library} HINTS /usr/lib/llvm-19/lib)
        list(APPEND libraries "${PEER_${library}}")
    endforeach()
    if(NOT PEER_${name}_INCLUDE OR "${libraries}" MATCHES "NOTFOUND")
        message(STATUS "Benchmarks: no ${name} here; its rows are skipped")
        return()
    endif()
    add_library(peer_${name} INTERFACE)
    target_include_directories(peer_${name} SYSTEM INTERFACE "${PEER_${name}_INCLUDE}")
    target_link_libraries(peer_${name} INTERFACE ${libraries})
endfunction()

zt_orvex_find_peer(clang clang/Analysis/Analyses/LiveVariables.h "" libclang-cpp.so.19.1 LLVM-19)
zt_orvex_find_peer(pcre2 pcre2.h "" pcre2-16)
zt_orvex_find_peer(absl absl/container/flat_hash_map.h "" absl_raw_hash_set absl_hash)
