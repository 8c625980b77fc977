# Compares the dynamic symbols that LIBRARY defines, as OBJDUMP prints them, with the five names that hosts know. For
# the native build; cmake/check-dll does it for the DLL.
set(expected DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer _ZN18XQVBrowserSettingsaSERKS_)

execute_process(COMMAND ${OBJDUMP} -T ${LIBRARY} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\n[0-9a-f]+ [^\n]*[ \t]\\.[a-z_.]+\t[^\n]*" definitions "${printed}")
set(exported "")
foreach(line IN LISTS definitions)
    string(REGEX MATCH "[^ \t]+$" name "${line}")
    list(APPEND exported ${name})
endforeach()
list(SORT exported)
if(NOT exported STREQUAL expected)
    message(FATAL_ERROR "exported: ${exported}\nexpected: ${expected}")
endif()
