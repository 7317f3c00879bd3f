# Read by cpack at its start: the date that goes into the archives.
set(ENV{SOURCE_DATE_EPOCH} ${CPACK_HALVERN_SOURCE_DATE})
