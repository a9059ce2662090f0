# Prints what bash would offer for the last of the words: completion.sh COMPLETION PROGRAM WORD...
source "$1"
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
_symbhost
echo "${COMPREPLY[*]}"
