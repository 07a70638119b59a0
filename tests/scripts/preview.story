The preview beside the list is shown and hidden by its entry, and its place is kept in a file of its own.
== files ==
d/a text
d/b text
== script ==
select ROOT/d
call search_check_m_Click
call preview_m
show preview_m
quit
== output ==
message	检查同内容文件完毕	已　检　查:2 个文件 \r\n相同文件有:1个,占用空间4 字节  用时: 0:0:...	ok	1000
preview_m	caption	预览(&E)
preview_m	value	-1
preview_m	tooltip	
preview_m	visible	1
preview_m	enabled	1
== file 预览.txt ==
preview=1
