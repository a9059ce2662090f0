#!/bin/sh
# What help2man makes the manual page of: the program's help, and behind it that of each command as a section.
#
#   manual.sh PROGRAM --help|--version
set -eu
program=$1

if [ "$2" = --version ]; then
    "$program" --version | head -n 1
    exit
fi

"$program" --help
"$program" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p' | while read -r command; do
    echo
    # The description becomes the heading, the usage its first line; what stands in every help is left out.
    "$program" "$command" --help | awk -v command="$command" '
        NR == 1 { description = $0; next }
        /^Usage: / { print command " - " description ":"; sub(/^Usage: /, "  "); print; print ""; next }
        /^(Positionals|Options):/ { listed = 1; next }
        /^[^ ]/ { listed = 0 }
        listed && NF && !/^  -h,--help/ { print }'
done
