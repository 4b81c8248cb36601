# Makes a page of what cmark-gfm makes of a document: its title, its style, headings that links find,
# and links to the other pages. -v style=FILE names a style sheet, as seen from the page.

function anchor(heading) {
    gsub(/<[^>]*>|&[a-z]+;/, "", heading)
    heading = tolower(heading)
    gsub(/[^a-z0-9 _-]/, "", heading)
    gsub(/ /, "-", heading)
    return heading
}
/^<h[1-6]>/ {
    text = $0
    gsub(/<[^>]*>/, "", text)
    if (!title)
        title = text
    sub(/>/, " id=\"" anchor($0) "\">")
}
{
    body = body $0 "\n"
}
END {
    print "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">"
    print "<meta name=\"viewport\" content=\"width=device-width\">"
    print "<title>" title " - Vireo</title>\n<link rel=\"stylesheet\" href=\"" style "\">"
    printf "</head>\n<body>\n%s</body>\n</html>\n", body
}
