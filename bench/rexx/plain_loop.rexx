/* The same loop with the command evaluated by the interpreter itself. */
parse arg n
right = 0
do n
  x = 1+2
  if x = 3 then right = right + 1
end
say right
