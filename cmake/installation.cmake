# What an installation holds, and the Debian package made of it (scripts/paquet.sh).

install(TARGETS vela DESTINATION bin)
set(bibliotheques velahost velaui module_arx module_carte principal_arx terrain_arx)
if(TARGET module_navigateur)
    list(APPEND bibliotheques module_navigateur)
endif()
install(TARGETS ${bibliotheques} DESTINATION lib/vela)
install(FILES module/resources/module.menu DESTINATION lib/vela RENAME Vela-ARX2015-64BITS.menu)
install(FILES siblings/terrain/terrain.menu DESTINATION lib/vela RENAME KALT-ARX2015-64BITS.menu)
set_target_properties(${bibliotheques} PROPERTIES INSTALL_RPATH "\$ORIGIN")

# The converter as npm has installed it, without what only those who develop with the library need.
install(DIRECTORY host/dwg/convertisseur DESTINATION lib/vela
    PATTERN "package-lock.json" EXCLUDE PATTERN ".package-lock.json" EXCLUDE PATTERN "*.d.ts" EXCLUDE
    PATTERN "*.umd.cjs" EXCLUDE PATTERN "libredwg-web/lib" EXCLUDE PATTERN "README.md" EXCLUDE)

set(installation ${PROJECT_SOURCE_DIR}/app/installation)
set(prepares ${PROJECT_BINARY_DIR}/installation)
foreach(texte vela.1 changelog)
    configure_file(${installation}/${texte} ${prepares}/${texte} @ONLY)
    add_custom_command(OUTPUT ${prepares}/${texte}.gz COMMAND gzip -9nkf ${prepares}/${texte}
        DEPENDS ${prepares}/${texte})
endforeach()
add_custom_target(textes_installation ALL DEPENDS ${prepares}/vela.1.gz ${prepares}/changelog.gz)
install(FILES ${prepares}/vela.1.gz DESTINATION share/man/man1)
install(FILES ${prepares}/vela.1.gz DESTINATION share/man/fr/man1)
install(FILES ${prepares}/changelog.gz ${installation}/copyright DESTINATION share/doc/vela)
install(FILES docs/guide-utilisateur.md docs/fichier-mc.md docs/scripts.md docs/fonctions-lisp.md docs/autolisp.md
    docs/codification.md docs/chantier-corrige.png docs/fenetre.png DESTINATION share/doc/vela)
install(DIRECTORY docs/images DESTINATION share/doc/vela)
install(DIRECTORY examples DESTINATION share/doc/vela)
install(FILES ${installation}/vela.desktop DESTINATION share/applications)
install(FILES ${installation}/vela.svg DESTINATION share/icons/hicolor/scalable/apps)
install(FILES ${installation}/vela.xml DESTINATION share/mime/packages)
install(FILES ${installation}/completion.bash DESTINATION share/bash-completion/completions RENAME vela)

# Programs of the build find their documentation where those of an installation do.
file(REMOVE ${CMAKE_BINARY_DIR}/share/doc/vela) # a link to docs, in older trees
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/share/doc/vela)
file(GLOB pages docs/*)
foreach(page ${pages} ${PROJECT_SOURCE_DIR}/examples)
    get_filename_component(nom ${page} NAME)
    file(CREATE_LINK ${page} ${CMAKE_BINARY_DIR}/share/doc/vela/${nom} SYMBOLIC)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vela)
set(CPACK_PACKAGE_VENDOR Vela)
set(CPACK_PACKAGE_CONTACT "Vela <vela@vela.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "topographie : polygonales, tables de points et dessins de levés
Vela fait d'un dessin DXF ou DWG un espace de travail topographique : tables
de points gardées dans le dessin, symboles codés, polygonales compensées et
leurs rapports, dans une fenêtre, par des scripts ou en ligne de commande.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_DEPENDS "nodejs, fonts-dejavu-core, libqt6svg6, qt6-translations-l10n, shared-mime-info")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
