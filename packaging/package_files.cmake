# Run by cpack when the files stand as they are packed: programs lose what names the compiler, folders can be entered by
# all whatever the user's mask of permissions, and everything gets the date of the sources.
file(GLOB_RECURSE programs ${CPACK_TEMPORARY_DIRECTORY}/usr/bin/* ${CPACK_TEMPORARY_DIRECTORY}/usr/lib/*.so)
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${programs} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -type d -exec chmod 755 {} + COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch --no-dereference --date=@${CPACK_HALVERN_SOURCE_DATE} {} +
  COMMAND_ERROR_IS_FATAL ANY)
