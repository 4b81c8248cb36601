# Turns LICENSE into Debian's machine-readable copyright file.

BEGIN {
    print "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/"
    print "Upstream-Name: Vireo"
    print ""
    print "Files: *"
}
/^Copyright/ {
    sub(/^Copyright \(c\) /, "")
    print "Copyright: " $0
    print "License: Expat"
    in_text = 1
    next
}
in_text && NF { print " " $0; text = 1; next }
in_text && text { print " ." }
