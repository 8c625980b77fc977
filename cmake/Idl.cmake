# Interface descriptions: headers and type libraries made from IDL by the cross compiler's IDL compiler. Windows only.
find_program(QV_WIDL NAMES x86_64-w64-mingw32-widl widl REQUIRED)
find_path(QV_IDL_FILES oaidl.idl PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
          NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(QV_TYPE_LIBRARIES stdole2.tlb PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows
          /usr/lib/wine/x86_64-windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(QV_WIDL_COMMAND ${QV_WIDL} -m64 -I ${QV_IDL_FILES} -L ${QV_TYPE_LIBRARIES} -I ${CMAKE_SOURCE_DIR}/host/interfaces)
set(QV_SESSION_TYPES_IDL ${CMAKE_SOURCE_DIR}/host/interfaces/session_types.idl)

# qv_idl_headers(NAME IDL...): an interface library whose users include the headers made from the files, by base name.
function(qv_idl_headers name)
    set(folder ${CMAKE_BINARY_DIR}/idl)
    file(MAKE_DIRECTORY ${folder})
    set(headers "")
    foreach(idl ${ARGN})
        get_filename_component(base ${idl} NAME_WE)
        add_custom_command(OUTPUT ${folder}/${base}.h
                           COMMAND ${QV_WIDL_COMMAND} -h -o ${folder}/${base}.h ${idl}
                           DEPENDS ${idl} ${QV_SESSION_TYPES_IDL}
                           COMMENT "Making ${base}.h from its interface description")
        list(APPEND headers ${folder}/${base}.h)
    endforeach()
    add_custom_target(${name}_files DEPENDS ${headers})
    add_library(${name} INTERFACE)
    add_dependencies(${name} ${name}_files)
    target_include_directories(${name} SYSTEM INTERFACE ${folder})
endfunction()
