-- Makes a page of a chapter: its first heading names it, and links to other chapters lead to their pages.

local shown_as = pandoc.utils.stringify

function Pandoc(document)
  for _, block in ipairs(document.blocks) do
    if block.t == "Header" and block.level == 1 then
      document.meta.pagetitle = shown_as(block)
      break
    end
  end
  return document
end

function Link(link)
  link.target = link.target:gsub("^([%w_-]+)%.md$", "%1.html"):gsub("^([%w_-]+)%.md#", "%1.html#")
  if link.target:find("%.%./") then
    error("a link that leads out of the manual: " .. link.target)
  end
  return link
end
