-- Links between the pages of the manual lead to places of the one page, or of the other language's
-- page beside it; links to files that are part of neither become plain text.

local variables = PANDOC_WRITER_OPTIONS.variables

-- Whether the names in `list`, separated by blanks, have `name` among them.
local function has(list, name)
  return (" " .. tostring(list) .. " "):find(" " .. name .. " ", 1, true) ~= nil
end

-- `target` of a link in a page of the folder, as seen from docs/.
local function from_docs(target)
  local folder = tostring(variables.folder)
  if folder == "" then return target end
  local above = target:match("^%.%./(.*)$")
  return above or folder .. "/" .. target
end

local function place(page, anchor)
  return anchor ~= "" and "#" .. anchor or "#page-" .. page:gsub("^ja/", "")
end

function Link(link)
  if link.target:find("://") or link.target:sub(1, 1) == "#" then return link end
  local file, anchor = link.target:match("^([^#]+)#?(.*)$")
  local page = file and from_docs(file):match("^([%w/-]+)%.md$")
  if page and has(variables.pages, page) then
    link.target = place(page, anchor)
    return link
  end
  if page and has(variables["other-pages"], page) then
    link.target = tostring(variables.other) .. place(page, anchor)
    return link
  end
  return link.content
end
