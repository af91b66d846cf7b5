# Installation and the Debian package.
#
# Installed layout under the prefix:
#   bin/velorin
#   lib/velorin/libvelorin_fenetre.so   the window's module (lib/<multiarch
#       triplet>/velorin for the prefix /usr), which the program loads by
#       the path from its own folder (../lib/velorin)
#   share/velorin/{Espace_courbes,Plan_courbes,Aide}/...   factory files, read
#       by the program as ../share/velorin from its own folder
#   share/applications/org.velorin.Velorin.desktop
#   share/icons/hicolor/{scalable,NxN}/apps/org.velorin.Velorin.{svg,png}
#   share/metainfo/org.velorin.Velorin.metainfo.xml
#   share/man/{fr/,}man1/velorin.1.gz   the manual page, gzip -9n at build time
#   share/doc/velorin/copyright         the Debian copyright file
#   share/doc/velorin/changelog.gz      the package's changelog, gzip -9n
#   share/lintian/overrides/velorin     the lintian lines kept, with why
include(GNUInstallDirs)

set(VELORIN_ID org.velorin.Velorin)
set(VELORIN_PAQUET ${CMAKE_SOURCE_DIR}/paquet)
# Who answers for the package: its Maintainer field, the copyright file's
# contact and the changelog's signature. The default is a placeholder in
# the reserved .invalid domain; a published package sets its own address.
set(VELORIN_MAINTENEUR "Velorin <velorin@velorin.invalid>" CACHE STRING "Nom <adresse> du responsable du paquet")

# PNG icons drawn from the SVG at build time.
add_executable(icone_png tools/icone_png.cpp)
target_link_libraries(icone_png PRIVATE Qt6::Gui Qt6::Svg)
set(VELORIN_TAILLES_ICONE 16 24 32 48 64 128 256)
set(VELORIN_ICONES ${CMAKE_BINARY_DIR}/icones)
set(sorties_icones)
foreach(t IN LISTS VELORIN_TAILLES_ICONE)
  list(APPEND sorties_icones ${VELORIN_ICONES}/${t}x${t}/apps/${VELORIN_ID}.png)
endforeach()
add_custom_command(OUTPUT ${sorties_icones}
  COMMAND icone_png ${VELORIN_PAQUET}/${VELORIN_ID}.svg ${VELORIN_ICONES} ${VELORIN_ID} ${VELORIN_TAILLES_ICONE}
  DEPENDS icone_png ${VELORIN_PAQUET}/${VELORIN_ID}.svg
  COMMENT "Icônes PNG de Velorin")
add_custom_target(icones ALL DEPENDS ${sorties_icones})

# The manual page compressed as Debian installs them: best compression, no
# file name nor time stamp inside (the same bytes at every build).
set(VELORIN_MAN ${CMAKE_BINARY_DIR}/man/velorin.1)
add_custom_command(OUTPUT ${VELORIN_MAN}.gz
  COMMAND ${CMAKE_COMMAND} -E copy ${VELORIN_PAQUET}/velorin.1 ${VELORIN_MAN}
  COMMAND gzip -9nf ${VELORIN_MAN}
  DEPENDS ${VELORIN_PAQUET}/velorin.1
  COMMENT "Page de manuel compressée")
add_custom_target(page_manuel ALL DEPENDS ${VELORIN_MAN}.gz)

configure_file(${VELORIN_PAQUET}/${VELORIN_ID}.metainfo.xml.in ${CMAKE_BINARY_DIR}/${VELORIN_ID}.metainfo.xml @ONLY)
configure_file(${VELORIN_PAQUET}/copyright.in ${CMAKE_BINARY_DIR}/doc/copyright @ONLY)
# The changelog of a native package, compressed like the manual page.
configure_file(${VELORIN_PAQUET}/changelog.in ${CMAKE_BINARY_DIR}/doc/changelog @ONLY)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/doc/changelog.gz
  COMMAND gzip -9nkf ${CMAKE_BINARY_DIR}/doc/changelog
  DEPENDS ${CMAKE_BINARY_DIR}/doc/changelog
  COMMENT "Changelog compressé")
add_custom_target(changelog ALL DEPENDS ${CMAKE_BINARY_DIR}/doc/changelog.gz)

# Bound at load time (no lazy binding): the hardening Debian asks of programs.
target_link_options(velorin PRIVATE LINKER:-z,relro,-z,now)
target_link_options(velorin_fenetre PRIVATE LINKER:-z,relro,-z,now)

# The window's module in a private folder of the library folder; the
# program finds it there by the path from its own folder.
set(VELORIN_DOSSIER_MODULE ${CMAKE_INSTALL_LIBDIR}/velorin)
file(RELATIVE_PATH VELORIN_MODULE_RELATIF ${CMAKE_INSTALL_FULL_BINDIR}
     ${CMAKE_INSTALL_PREFIX}/${VELORIN_DOSSIER_MODULE})
target_compile_definitions(velorin PRIVATE VELORIN_MODULE_INSTALLE="${VELORIN_MODULE_RELATIF}")

install(TARGETS velorin RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS velorin_fenetre LIBRARY DESTINATION ${VELORIN_DOSSIER_MODULE})
# A stripped program keeps no compiler identification either (.comment),
# as Debian's own stripping does; nor does its module.
foreach(installe IN ITEMS ${CMAKE_INSTALL_BINDIR}/velorin
                          ${VELORIN_DOSSIER_MODULE}/$<TARGET_FILE_NAME:velorin_fenetre>)
  install(CODE "if(CMAKE_INSTALL_DO_STRIP)
  execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --remove-section=.comment
                          \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${installe}\"
                  COMMAND_ERROR_IS_FATAL ANY)
endif()")
endforeach()
# The factory folder as the build made it (shipped parameter files, the
# galleries written from their sources, the help pages).
install(DIRECTORY $<TARGET_FILE_DIR:velorin>/usine/ DESTINATION ${CMAKE_INSTALL_DATADIR}/velorin)
install(FILES ${VELORIN_PAQUET}/${VELORIN_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${VELORIN_PAQUET}/${VELORIN_ID}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(DIRECTORY ${VELORIN_ICONES}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${CMAKE_BINARY_DIR}/${VELORIN_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${VELORIN_MAN}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/fr/man1)
install(FILES ${VELORIN_MAN}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/doc/copyright ${CMAKE_BINARY_DIR}/doc/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/velorin)
install(FILES ${VELORIN_PAQUET}/velorin.lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
        RENAME velorin)

# The Debian package: `make paquet` (the target `package`).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velorin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_CONTACT "${VELORIN_MAINTENEUR}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "tracé de courbes et de surfaces dans le plan et dans l'espace")
# Lines of at most 80 columns, as the control file wants them.
string(JOIN "\n" CPACK_PACKAGE_DESCRIPTION
  "Velorin trace des courbes et des surfaces mathématiques, dans le plan et"
  "dans l'espace, à partir de formules tapées comme dans un cahier : fonctions"
  "y = f(x), courbes paramétrées, surfaces, coordonnées sphériques, nuages,"
  "points, droites, plans et segments, rangés dans des catalogues."
  ""
  "Le dessin montre le repère, les courbes, leurs tangentes et projections ;"
  "il se tourne, se zoome, se légende, se mémorise, s'imprime et s'exporte en"
  "PNG, SVG, PDF, TikZ ou animation GIF. Une ligne de commande calcule des"
  "formules et exporte les dessins sans fenêtre. Interface et aide en français.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The libraries come from dpkg-shlibdeps (Debian's libqt6gui6 holds the X11
# platform plugin too); the French translations of Qt's standard dialogs
# and the Wayland plugin are not libraries it sees.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, qt6-wayland")
set(CPACK_STRIP_FILES ON)
include(CPack)
