provider=14-7105
start=10/1/2015
end=9/30/2016
name='Empty Home Health'
