The choice of master files for a search of similar files: no menu and no button leads to it.
== files ==
== script ==
answer /m/dir a.jpg b.jpg
call Command31_Click
show rela_file_list
show similar_main_file
# The next choice starts there. A dismissed box changes nothing.
answer cancel
call Command31_Click
show rela_file_list
show Frame3
== output ==
input	选择相似主文件	
rows	3
1	0	0	/m/dir/
2	0	0	a.jpg
3	0	0	b.jpg
similar_main_file	/m/dir/
input	选择相似主文件	/m/dir/
rows	3
1	0	0	/m/dir/
2	0	0	a.jpg
3	0	0	b.jpg
Frame3	caption	相似性设置
Frame3	tooltip	
Frame3	visible	0
Frame3	enabled	1
