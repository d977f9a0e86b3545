# release_notes.awk -v version=V -v today=DATE CHANGELOG.md METAINFO: prints METAINFO with the releases
# of the changelog in place of the line "RELEASES". What is unreleased is a development release of
# that version and date.
function closeItem() {
  if (item == "") return
  gsub(/&/, "\\&amp;", item); gsub(/</, "\\&lt;", item); gsub(/>/, "\\&gt;", item)
  while (match(item, /`[^`]*`/))
    item = substr(item, 1, RSTART - 1) "<code>" substr(item, RSTART + 1, RLENGTH - 2) "</code>" \
           substr(item, RSTART + RLENGTH)
  notes = notes "          <li>" item "</li>\n"
  item = ""
}
function closeSection() {
  closeItem()
  if (inSection) notes = notes "        </ul>\n"
  inSection = 0
}
function closeRelease() {
  closeSection()
  if (inRelease) notes = notes "      </description>\n    </release>\n"
  inRelease = 0
}

FNR == 1 && NR > 1 { closeRelease(); sub(/\n$/, "", notes) }
NR != FNR { print ($0 == "RELEASES" ? notes : $0); next }
/^## \[/ {
  closeRelease()
  name = $2
  gsub(/[][]/, "", name)
  isReleased = name != "Unreleased"
  notes = notes "    <release version=\"" (isReleased ? name : version) "\" date=\"" \
          (isReleased ? $4 : today) "\" type=\"" (isReleased ? "stable" : "development") "\">\n" \
          "      <description>\n"
  inRelease = 1
}
/^### / {
  closeSection()
  notes = notes "        <p>" $2 "</p>\n        <ul>\n"
  inSection = 1
}
inSection && /^- / { closeItem(); item = substr($0, 3) }
inSection && /^  / { item = item " " substr($0, 3) }
