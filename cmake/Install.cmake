# cmake --install: the DLLs with what they need, headers, interface descriptions, type library and documentation, and a
# package with which find_package(qvsettingsdialog) finds them.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/qvsettingsdialog)
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/qvsettingsdialog)

set(installed qv_options platform framework host_interfaces host_libraries settings_interfaces qvsettingsdialog)
set_target_properties(platform framework host_libraries qvsettingsdialog PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS ${installed} EXPORT qvsettingsdialog
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT qvsettingsdialog NAMESPACE qvsettingsdialog:: DESTINATION ${package}
        FILE qvsettingsdialogTargets.cmake)
file(WRITE ${CMAKE_BINARY_DIR}/qvsettingsdialogConfig.cmake
     "include(\${CMAKE_CURRENT_LIST_DIR}/qvsettingsdialogTargets.cmake)\n")
write_basic_package_version_file(${CMAKE_BINARY_DIR}/qvsettingsdialogConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/qvsettingsdialogConfig.cmake ${CMAKE_BINARY_DIR}/qvsettingsdialogConfigVersion.cmake
        DESTINATION ${package})

install(DIRECTORY base framework platform DESTINATION ${headers} FILES_MATCHING PATTERN *.h)
install(DIRECTORY host/interfaces host/libraries DESTINATION ${headers}/host FILES_MATCHING PATTERN *.h)
install(FILES qvclient/qvsettingsdialog/resources/settings_interfaces.h
        DESTINATION ${headers}/qvclient/qvsettingsdialog/resources)
install(FILES host/interfaces/session_types.idl host/interfaces/host_interfaces.idl
              qvclient/qvsettingsdialog/resources/qvsettingsdialog.idl examples/beside.manifest
        DESTINATION ${CMAKE_INSTALL_DATADIR}/qvsettingsdialog)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR})
if(WIN32)
    install(FILES ${QV_RUNTIME_LIBRARIES} DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES ${CMAKE_BINARY_DIR}/qvclient/qvsettingsdialog/resources/qvsettingsdialog.tlb
            DESTINATION ${CMAKE_INSTALL_DATADIR}/qvsettingsdialog)
endif()
