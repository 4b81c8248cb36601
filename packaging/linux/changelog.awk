# Turns CHANGELOG.md into the forms that other programs read.
#
#   awk -v form=appstream|debian -v version=V -v date=D [-v maintainer=M] -f changelog.awk CHANGELOG.md
#
# appstream: the <release> elements of the metainfo file; debian: a Debian changelog. What stands
# under "Unreleased" is the version V of the date D (seconds since 1970); all other headings carry
# their own: "## [5.1.0] - 2025-03-31".

function escaped(text)
{
    gsub(/&/, "\\&amp;", text)
    gsub(/</, "\\&lt;", text)
    gsub(/>/, "\\&gt;", text)
    return text
}

# Links become their text, and code is set like all text.
function plain(text,    link)
{
    while (match(text, /\[[^]]*\]\([^)]*\)/)) {
        link = substr(text, RSTART + 1, RLENGTH - 1)
        sub(/\].*/, "", link)
        text = substr(text, 1, RSTART - 1) link substr(text, RSTART + RLENGTH)
    }
    gsub(/`/, "", text)
    return text
}

# A Debian changelog has lines of up to 80 characters.
function wrapped(text,    words, count, i, line, lines)
{
    count = split(text, words, " ")
    line = "  *"
    for (i = 1; i <= count; ++i) {
        if (length(line) + 1 + length(words[i]) > 78) {
            lines = lines line "\n"
            line = "   "
        }
        line = line " " words[i]
    }
    return lines line
}

function finish_item()
{
    if (item == "")
        return
    if (!in_release)
        print_heading()
    item = plain(item)
    if (form == "debian")
        print wrapped(item)
    else
        print "          <li>" escaped(item) "</li>"
    item = ""
}

function finish_release()
{
    finish_item()
    if (!in_release)
        return
    if (form == "debian")
        printf "\n -- %s  %s\n\n", maintainer, mail_date()
    else
        print "        </ul>\n      </description>\n    </release>"
    in_release = 0
}

# The release's date as mail writes it. The system's own command knows the calendar.
function mail_date(    command, text)
{
    command = "LC_ALL=C date -u -d '" when "' '+%a, %d %b %Y %H:%M:%S +0000'"
    command | getline text
    close(command)
    return text
}

# A heading without any item, such as "Unreleased" just after a release, gives nothing.
function print_heading(    shown)
{
    in_release = 1
    if (form == "debian") {
        printf "vireo (%s) unstable; urgency=medium\n\n", name
        return
    }
    shown = when ~ /^@/ ? "timestamp=\"" substr(when, 2) "\"" : "date=\"" when "\""
    printf "    <release version=\"%s\" %s type=\"%s\">\n", name, shown, type
    print "      <description>\n        <ul>"
}

/^## \[/ {
    finish_release()
    name = $2
    gsub(/[][]/, "", name)
    when = $4
    type = "stable"
    if (name == "Unreleased") {
        name = version
        when = "@" date
        type = "development"
    }
    next
}
/^- / { finish_item(); item = substr($0, 3); next }
/^  / && item != "" { item = item " " substr($0, 3); next }
{ finish_item() }
END { finish_release() }
