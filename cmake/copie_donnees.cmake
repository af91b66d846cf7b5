# Puts the factory data (data/<folder>/...) beside the executable.
# - DST/usine/<folder>/... always holds the shipped copy: the program refills a
#   missing file of its folders from there.
# - DST/<folder>/... gets the shipped copy only when the file is absent, so a
#   rebuild never overwrites what the user changed (mem.log, catalogues).
# - The help pages (data/Aide/) stay in usine/ only: the program reads them
#   there, so a rebuild shows the pages as they are now.
# data/sources/ holds readable sources that other build steps turn into files.
file(GLOB_RECURSE fichiers RELATIVE "${SRC}" "${SRC}/*")
foreach(f IN LISTS fichiers)
  if(f MATCHES "^sources/")
    continue()
  endif()
  configure_file("${SRC}/${f}" "${DST}/usine/${f}" COPYONLY)
  if(NOT f MATCHES "^Aide/" AND NOT EXISTS "${DST}/${f}")
    configure_file("${SRC}/${f}" "${DST}/${f}" COPYONLY)
  endif()
endforeach()
