# The Debian package of the release tree: the assistant, asistentectl, asistente-db with the
# server schema, the help pages, the desktop entry and the nightly send's systemd user units.
# The simulators and their connector libraries have no install rule: they are the sandbox, and
# a seller's machine has the real ERP and back office instead.

set(_packaging ${PROJECT_SOURCE_DIR}/packaging)
set(_share ${CMAKE_INSTALL_DATADIR})
set(_doc ${CMAKE_INSTALL_DATADIR}/doc/${PROJECT_NAME})
# Policy wants 755 directories whatever the umask of the machine that builds the package.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The help pages: the program falls back to them when its working folder has no docs/.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${_share}/${PROJECT_NAME}/docs)
install(FILES ${_packaging}/asistente.desktop DESTINATION ${_share}/applications)
install(FILES ${_packaging}/asistente.svg DESTINATION ${_share}/icons/hicolor/scalable/apps)
install(FILES ${_packaging}/asistente-envio.service ${_packaging}/asistente-envio.timer
        DESTINATION lib/systemd/user)
install(FILES ${_packaging}/copyright DESTINATION ${_doc})

# Debian wants the changelog and the manual pages gzipped at the best level, without the name
# and time stamp that would make two builds of one tree differ.
function(asistente_install_gzipped source destination)
    get_filename_component(name ${source} NAME)
    set(gzipped ${PROJECT_BINARY_DIR}/packaging/${name}.gz)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packaging)
    execute_process(COMMAND gzip -9nc INPUT_FILE ${source} OUTPUT_FILE ${gzipped}
                    COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    install(FILES ${gzipped} DESTINATION ${destination})
endfunction()

asistente_install_gzipped(${_packaging}/changelog ${_doc})
foreach(page asistente.1 asistentectl.1 asistente-db.1)
    asistente_install_gzipped(${_packaging}/man/${page} ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Equipo del Asistente de Publicación <equipo@asistente.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "publicación de productos del ERP en la feria Nubalia")
# Debian shows the long description as it is written: lines under 80 columns.
set(CPACK_PACKAGE_DESCRIPTION
    "El Asistente de Publicación lleva a la feria Nubalia lo que tiene el ERP
del vendedor: vincula minitiendas con depósitos virtuales, asocia productos,
los publica, modifica y retira, y envía lo pendiente a la feria.

Incluye asistentectl, que hace el mismo envío sin ventanas (con un
temporizador de systemd) y muestra lo que haría el próximo envío, los
informes de cada envío, las publicaciones atascadas y un diagnóstico de
cada vínculo; y asistente-db, que prepara la base de datos del vendedor.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt finds its window system through a plugin, which no linked library names.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
# A real installation talks to SQL Server through FreeTDS.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "tdsodbc")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
