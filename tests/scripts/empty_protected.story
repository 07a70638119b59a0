A hidden empty directory turns blue first, and goes after a yes in the second run.
== files ==
d/.config/
d/plain/
== script ==
select ROOT/d
call Command43_Click
call all_select
answer yes
call Picture8_Click
show ListView1
show force_protected
call Picture8_Click
show force_protected
show ListView1
== output ==
shell	recycle	ROOT/d/plain/
message	提示	放入回收站:1 个空目录\r\n无法删除:1 个空目录 (隐藏或只读)\r\n如需删除隐藏或只读目录,请按 yes,并重新运行<删除空目录>	yesno	1000
rows	2	list_mode	1	visible	1
1	1	0	ROOT/d/.config/	16711680
2	2	0		255
force_protected	-1
shell	recycle	ROOT/d/.config/
message	提示	放入回收站:1 个空目录	ok	1000
force_protected	0
rows	2	list_mode	1	visible	1
1	1	0		16711680
2	2	0		255
