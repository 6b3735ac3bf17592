-- Links between the pages of the manual lead to places of the one page; links to files that are not
-- part of it become plain text.

function Link(link)
  if link.target:find("://") or link.target:sub(1, 1) == "#" then return link end
  local file, anchor = link.target:match("^([^#]+)#?(.*)$")
  local page = file and file:match("^([%w-]+)%.md$")
  if page and PANDOC_WRITER_OPTIONS.variables["page-" .. page] then
    link.target = anchor ~= "" and "#" .. anchor or "#page-" .. page
    return link
  end
  return link.content
end
