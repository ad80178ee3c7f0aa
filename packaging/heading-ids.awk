# Gives each heading of a page the name by which links such as (#large-runs) find it: its text in small letters, without
# punctuation, with a hyphen for each blank. Web pages that show Markdown do the same.
match($0, /^<h[1-6]>/) {
    level = substr($0, 2, 2)
    text = $0
    gsub(/<[^>]*>/, "", text)
    gsub(/&[a-z]+;/, "", text)
    name = tolower(text)
    gsub(/[^a-z0-9 _-]/, "", name)
    gsub(/ /, "-", name)
    sub(/^<h[1-6]>/, "<" level " id=\"" name "\">")
}
{ print }
