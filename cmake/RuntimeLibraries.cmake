# Windows programs of ours share C++ objects across DLLs and therefore the C++ runtime's DLLs too: they lie beside them.
if(WIN32)
    foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        list(APPEND QV_RUNTIME_LIBRARIES ${path})
        file(COPY ${path} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    endforeach()
endif()
