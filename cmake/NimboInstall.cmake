# What `cmake --install` puts in place besides the two programs: the desktop entry, the icon at
# the hicolor sizes and as SVG, the AppStream metainfo, the manual pages and the shell completion.

# The hicolor sizes are drawn from the one SVG at build time.
add_executable(nimbo-iconrender ${PROJECT_SOURCE_DIR}/src/iconrender/main.cpp)
target_link_libraries(nimbo-iconrender PRIVATE Qt6::Gui Qt6::Svg)
set(NIMBO_ICON_PNGS)
foreach(size 16 24 32 48 64 128 256 512)
    set(png ${PROJECT_BINARY_DIR}/icons/${size}/com.halvorndesign.Nimbo.png)
    add_custom_command(OUTPUT ${png}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/icons/${size}
        COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
                $<TARGET_FILE:nimbo-iconrender> ${PROJECT_SOURCE_DIR}/resources/nimbo.svg ${size} ${png}
        DEPENDS nimbo-iconrender ${PROJECT_SOURCE_DIR}/resources/nimbo.svg
        COMMENT "Drawing the ${size}px icon")
    list(APPEND NIMBO_ICON_PNGS ${png})
    install(FILES ${png} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
add_custom_target(nimbo-icons ALL DEPENDS ${NIMBO_ICON_PNGS})
install(FILES ${PROJECT_SOURCE_DIR}/resources/nimbo.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME com.halvorndesign.Nimbo.svg)

install(FILES ${PROJECT_SOURCE_DIR}/resources/com.halvorndesign.Nimbo.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${PROJECT_SOURCE_DIR}/resources/com.halvorndesign.Nimbo.metainfo.xml
               ${PROJECT_BINARY_DIR}/com.halvorndesign.Nimbo.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/com.halvorndesign.Nimbo.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

foreach(page nimbo nimboctl)
    configure_file(${PROJECT_SOURCE_DIR}/resources/man/${page}.1 ${PROJECT_BINARY_DIR}/man/${page}.1 @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/man/${page}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/resources/completion/nimboctl
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

# `make package`: a Debian package of the installed tree.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME nimbo)
set(CPACK_PACKAGE_CONTACT "Halvorn Design <nimbo@halvorndesign.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Launch and organise your applications from one floating panel")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
